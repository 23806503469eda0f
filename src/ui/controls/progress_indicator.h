#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// Shows how far something is. Assistive technology sees a progress bar with a value.
class ProgressIndicator : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A ring or a bar shows it.")
    /// How much is filled, from minimumValue to maximumValue: the names that Qt looks for in an accessible
    /// progress bar.
    Q_PROPERTY(double value MEMBER m_value NOTIFY changed)
    Q_PROPERTY(double minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(double maximumValue READ maximumValue CONSTANT)
    /// The value in whole percent, truncated.
    Q_PROPERTY(int percentage READ percentage NOTIFY changed)
    /// Colour of the whole shape below the filled part.
    Q_PROPERTY(QColor trackColor MEMBER m_trackColor NOTIFY changed)

public:
    explicit ProgressIndicator(QQuickItem *parent = nullptr);

    [[nodiscard]] double value() const { return m_value; }
    [[nodiscard]] static double minimumValue() { return 0.0; }
    [[nodiscard]] static double maximumValue() { return 1.0; }
    [[nodiscard]] int percentage() const;

Q_SIGNALS:
    /// Anything that is drawn changed.
    void changed();

protected:
    /// The value within its limits.
    [[nodiscard]] double filledShare() const;
    [[nodiscard]] const QColor &trackColor() const { return m_trackColor; }

private:
    double m_value = 0.0;
    QColor m_trackColor = Qt::transparent;
};

} // namespace sonavo
