#pragma once

#include <QMetaType>
#include <QObject>
#include <QStringView>

namespace sonavo {

/// An sRGB colour; all components are in [0.0, 1.0].
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
    /// 0.0 is transparent, 1.0 opaque.
    double alpha = 1.0;

    /// The same colour at another opacity.
    [[nodiscard]] constexpr Color withAlpha(double opacity) const { return {red, green, blue, opacity}; }

    friend bool operator==(const Color &, const Color &) = default;
};

/// Parses a colour in hexadecimal: "RGB", "RRGGBB" or "AARRGGBB" (alpha first).
///
/// Leading and trailing characters other than letters and digits, such as "#", are ignored. Text of any other
/// length, or with a digit that is not hexadecimal, gives opaque black.
[[nodiscard]] Color colorFromHex(QStringView text);

} // namespace sonavo

Q_DECLARE_METATYPE(sonavo::Color)
