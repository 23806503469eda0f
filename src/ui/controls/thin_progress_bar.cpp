#include "ui/controls/thin_progress_bar.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

namespace sonavo {

void ThinProgressBar::paint(QPainter *painter)
{
    const QRectF bar = boundingRect();
    const double radius = bar.height() / 2.0;
    QPainterPath shape;
    shape.addRoundedRect(bar, radius, radius);
    painter->fillPath(shape, trackColor());
    const double filled = bar.width() * filledShare();
    const double left = QGuiApplication::isRightToLeft() ? bar.width() - filled : 0.0;
    painter->setClipRect(QRectF(left, 0.0, filled, bar.height()));
    painter->fillPath(shape, m_color);
}

} // namespace sonavo
