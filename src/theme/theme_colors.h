#pragma once

#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QColor>
#include <QObject>
#include <QVariantAnimation>

namespace sonavo {

/// The colours that the views draw with, and the widths of their outlines. When the theme changes, all of
/// them fade to the new theme together, within 0.3 seconds. Main thread only.
class ThemeColors : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QColor background READ background NOTIFY changed)
    Q_PROPERTY(QColor secondaryBackground READ secondaryBackground NOTIFY changed)
    Q_PROPERTY(QColor tertiaryBackground READ tertiaryBackground NOTIFY changed)
    Q_PROPERTY(QColor border READ border NOTIFY changed)
    Q_PROPERTY(QColor textPrimary READ textPrimary NOTIFY changed)
    Q_PROPERTY(QColor textSecondary READ textSecondary NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor success READ success NOTIFY changed)
    Q_PROPERTY(QColor error READ error NOTIFY changed)
    Q_PROPERTY(QColor neutral READ neutral NOTIFY changed)

    // Text that keeps a contrast of 4.5 to 1 on every surface (WCAG 2.2, 1.4.3), where the plain colours do
    // not.
    Q_PROPERTY(QColor accentText READ accentText NOTIFY changed)
    Q_PROPERTY(QColor errorText READ errorText NOTIFY changed)
    /// A mark on rows, with a contrast of 3 to 1 (WCAG 2.2, 1.4.11).
    Q_PROPERTY(QColor errorMark READ errorMark NOTIFY changed)
    /// Text on the accent, as on the button of the default action.
    Q_PROPERTY(QColor textOnAccent READ textOnAccent NOTIFY changed)
    /// Secondary text on rows and on the bar below them.
    Q_PROPERTY(QColor mutedText READ mutedText NOTIFY changed)

    /// Tints of duplicate groups, opaque, indexed by DuplicateGroup::color.
    Q_PROPERTY(QList<QColor> groupTints READ groupTints NOTIFY changed)

    /// Width of the outlines of surfaces and controls, in logical pixels.
    Q_PROPERTY(double outlineWidth READ outlineWidth NOTIFY changed)
    /// Opacity of outlines that are faint unless contrast is high.
    Q_PROPERTY(double faintOutlineOpacity READ faintOutlineOpacity NOTIFY changed)

    // Aliases for particular parts of the interface.
    Q_PROPERTY(QColor focusRing READ accentText NOTIFY changed)
    Q_PROPERTY(QColor info READ accent NOTIFY changed)
    Q_PROPERTY(QColor original READ success NOTIFY changed)
    Q_PROPERTY(QColor duplicate READ accentText NOTIFY changed)
    Q_PROPERTY(QColor track READ tertiaryBackground NOTIFY changed)
    Q_PROPERTY(QColor hint READ textSecondary NOTIFY changed)
    Q_PROPERTY(QColor card READ secondaryBackground NOTIFY changed)
    Q_PROPERTY(QColor sheet READ background NOTIFY changed)
    Q_PROPERTY(QColor toast READ secondaryBackground NOTIFY changed)
    Q_PROPERTY(QColor toolbar READ secondaryBackground NOTIFY changed)
    Q_PROPERTY(QColor tableHeader READ secondaryBackground NOTIFY changed)
    Q_PROPERTY(QColor infoBar READ tertiaryBackground NOTIFY changed)
    Q_PROPERTY(QColor section READ secondaryBackground NOTIFY changed)
    Q_PROPERTY(QColor row READ tertiaryBackground NOTIFY changed)

public:
    /// @param manager must outlive the colours
    explicit ThemeColors(const ThemeManager &manager, QObject *parent = nullptr);

    [[nodiscard]] QColor background() const { return blended(PaletteColor::Background); }
    [[nodiscard]] QColor secondaryBackground() const { return blended(PaletteColor::SecondaryBackground); }
    [[nodiscard]] QColor tertiaryBackground() const { return blended(PaletteColor::TertiaryBackground); }
    [[nodiscard]] QColor border() const { return blended(PaletteColor::Border); }
    [[nodiscard]] QColor textPrimary() const { return blended(PaletteColor::TextPrimary); }
    [[nodiscard]] QColor textSecondary() const { return blended(PaletteColor::TextSecondary); }
    [[nodiscard]] QColor accent() const { return blended(PaletteColor::Accent); }
    [[nodiscard]] QColor success() const { return blended(PaletteColor::Success); }
    [[nodiscard]] QColor error() const { return blended(PaletteColor::Error); }
    [[nodiscard]] QColor neutral() const { return blended(PaletteColor::Neutral); }

    [[nodiscard]] QColor accentText() const;
    [[nodiscard]] QColor errorText() const;
    [[nodiscard]] QColor errorMark() const;
    [[nodiscard]] QColor textOnAccent() const;
    [[nodiscard]] QColor mutedText() const;

    [[nodiscard]] double outlineWidth() const { return isHighContrast() ? 2.0 : 1.0; }
    [[nodiscard]] double faintOutlineOpacity() const { return isHighContrast() ? 1.0 : 0.5; }

    [[nodiscard]] QList<QColor> groupTints() const;

Q_SIGNALS:
    void changed();

private:
    /// The colour at this moment of the fade.
    [[nodiscard]] QColor blended(PaletteColor role) const { return blended(role, role); }
    [[nodiscard]] QColor blended(PaletteColor inLight, PaletteColor inDark) const;
    [[nodiscard]] bool isHighContrast() const { return m_manager.wishes().isHighContrast; }

    const ThemeManager &m_manager;
    /// 0.0 is the light theme, 1.0 the dark one, anything between a moment of the fade.
    QVariantAnimation m_darkness;
};

} // namespace sonavo
