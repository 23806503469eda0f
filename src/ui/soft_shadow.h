#pragma once

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// The blurred black shadow of a rectangle that lies blurRadius inside this item's edges; the shadow fades
/// out towards them. Drawn without shaders, so that every renderer shows it.
class SoftShadow : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How far the shadow reaches beyond the rectangle, in logical pixels; twice the standard deviation of
    /// the blur.
    Q_PROPERTY(double blurRadius READ blurRadius WRITE setBlurRadius NOTIFY blurRadiusChanged)
    /// How dark the middle is, from 0.0 to 1.0.
    Q_PROPERTY(double strength READ strength WRITE setStrength NOTIFY strengthChanged)

public:
    explicit SoftShadow(QQuickItem *parent = nullptr);

    [[nodiscard]] double blurRadius() const { return m_blurRadius; }
    void setBlurRadius(double radius);
    [[nodiscard]] double strength() const { return m_strength; }
    void setStrength(double strength);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void blurRadiusChanged();
    void strengthChanged();

private:
    double m_blurRadius = 25.0;
    double m_strength = 0.2;
};

} // namespace sonavo
