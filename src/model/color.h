#pragma once

#include <QMetaType>
#include <QObject>
#include <QStringView>

namespace sonavo {

/// An sRGB colour; every component lies between 0.0 and 1.0.
struct Color
{
    Q_GADGET
    Q_PROPERTY(double red MEMBER red CONSTANT)
    Q_PROPERTY(double green MEMBER green CONSTANT)
    Q_PROPERTY(double blue MEMBER blue CONSTANT)
    Q_PROPERTY(double alpha MEMBER alpha CONSTANT)

public:
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    /// Opacity: 0.0 is clear, 1.0 is opaque.
    double alpha = 1.0;

    /// The same colour at another opacity.
    [[nodiscard]] constexpr Color withAlpha(double opacity) const { return {red, green, blue, opacity}; }

    friend bool operator==(const Color &, const Color &) = default;
};

/// Reads a colour from hexadecimal digits: "RGB", "RRGGBB" or "AARRGGBB" (opacity first).
///
/// Anything around the digits that is not a letter or a digit, such as a leading "#", is ignored. Any other
/// number of characters, and digits that are not hexadecimal, give opaque black.
[[nodiscard]] Color colorFromHex(QStringView text);

} // namespace sonavo

Q_DECLARE_METATYPE(sonavo::Color)
