#include "ui/controls/thin_progress_bar.h"

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
    painter->setClipRect(QRectF(0.0, 0.0, bar.width() * filledShare(), bar.height()));
    painter->fillPath(shape, m_color);
}

} // namespace sonavo
