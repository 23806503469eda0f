#pragma once

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// The blurred black shadow of a rectangle that lies blurRadius inside the edges of this item. Painted
/// without shaders, so that the software renderer shows it too.
class SoftShadow : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How far the shadow extends beyond the rectangle, in logical pixels; twice the standard deviation of
    /// the blur.
    Q_PROPERTY(double blurRadius MEMBER m_blurRadius NOTIFY changed)
    /// Opacity in the middle, from 0.0 to 1.0.
    Q_PROPERTY(double strength MEMBER m_strength NOTIFY changed)

public:
    explicit SoftShadow(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    double m_blurRadius = 25.0;
    double m_strength = 0.2;
};

} // namespace sonavo
