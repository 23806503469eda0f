#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// A ring that fills clockwise from the top, in a gradient of three colours around its centre.
class ProgressRing : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How much of the ring is filled, from minimumValue to maximumValue: the names that Qt looks for in an
    /// accessible progress bar.
    Q_PROPERTY(double value MEMBER m_value NOTIFY changed)
    Q_PROPERTY(double minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(double maximumValue READ maximumValue CONSTANT)
    /// The value in whole percent, truncated.
    Q_PROPERTY(int percentage READ percentage NOTIFY changed)
    /// Clockwise rotation of the gradient in degrees.
    Q_PROPERTY(double gradientRotation MEMBER m_gradientRotation NOTIFY changed)
    /// Width of the ring in logical pixels.
    Q_PROPERTY(double lineWidth MEMBER m_lineWidth NOTIFY changed)
    /// Colour of the full circle below the filled part.
    Q_PROPERTY(QColor trackColor MEMBER m_trackColor NOTIFY changed)

public:
    explicit ProgressRing(QQuickItem *parent = nullptr);

    [[nodiscard]] double value() const { return m_value; }
    [[nodiscard]] static double minimumValue() { return 0.0; }
    [[nodiscard]] static double maximumValue() { return 1.0; }
    [[nodiscard]] int percentage() const;

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    double m_value = 0.0;
    double m_gradientRotation = 0.0;
    double m_lineWidth = 15.0;
    QColor m_trackColor = Qt::transparent;
};

} // namespace sonavo
