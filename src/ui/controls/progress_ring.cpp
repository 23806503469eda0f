#include "ui/controls/progress_ring.h"

#include <QConicalGradient>
#include <QPainter>
#include <QPen>

namespace sonavo {
namespace {

// In degrees counter-clockwise from three o'clock, as in QPainter.
constexpr double TOP = 90.0;
constexpr double FULL_CIRCLE = 360.0;
/// QPainter's unit of angles is 1/16 degree.
constexpr double ANGLE_UNITS = 16.0;

/// The positions descend because QConicalGradient runs counter-clockwise.
QConicalGradient ringGradient(const QPointF &center, double rotation)
{
    QConicalGradient gradient(center, TOP - rotation);
    gradient.setColorAt(1.0, QColor(0x00, 0x2B, 0x7F));
    gradient.setColorAt(0.5, QColor(0xFC, 0xD1, 0x16));
    gradient.setColorAt(0.0, QColor(0xCE, 0x11, 0x26));
    return gradient;
}

} // namespace

void ProgressRing::paint(QPainter *painter)
{
    const double inset = m_lineWidth / 2.0;
    const QRectF circle = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setPen(QPen(trackColor(), m_lineWidth));
    painter->drawEllipse(circle);

    const double span = filledShare() * FULL_CIRCLE;
    if (span <= 0.0)
        return;
    const auto drawFilled = [&](const QBrush &brush, double width) {
        painter->setPen(QPen(brush, width, Qt::SolidLine, Qt::FlatCap));
        painter->drawArc(circle, static_cast<int>(TOP * ANGLE_UNITS), -static_cast<int>(span * ANGLE_UNITS));
    };
    constexpr double EDGE = 1.0;
    drawFilled(m_edgeColor, m_lineWidth);
    drawFilled(ringGradient(circle.center(), m_gradientRotation), m_lineWidth - 2.0 * EDGE);
}

} // namespace sonavo
