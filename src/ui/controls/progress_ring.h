#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// A ring that fills clockwise from the top with three colours blending into each other around it.
class ProgressRing : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How much of the ring is drawn, between minimumValue, nothing, and maximumValue, all of it. The three
    /// have the names under which a progress bar is read to people who cannot see it.
    Q_PROPERTY(double value MEMBER m_value NOTIFY changed)
    Q_PROPERTY(double minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(double maximumValue READ maximumValue CONSTANT)
    /// The value in whole percent, truncated.
    Q_PROPERTY(int percentage READ percentage NOTIFY changed)
    /// How far the colours are turned clockwise, in degrees.
    Q_PROPERTY(double gradientRotation MEMBER m_gradientRotation NOTIFY changed)
    /// Width of the ring in logical pixels.
    Q_PROPERTY(double lineWidth MEMBER m_lineWidth NOTIFY changed)
    /// Colour of the whole circle below.
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
