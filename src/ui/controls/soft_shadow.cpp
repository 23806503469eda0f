#include "ui/controls/soft_shadow.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

namespace sonavo {
namespace {

/// How dark a Gaussian blur leaves each point across a dark stripe that lies `margin` inside both ends. The
/// blur of a rectangle is the product of those of its two directions.
std::vector<double> blurredStripe(int length, double margin)
{
    const double deviation = margin / 2.0;
    const auto below = [deviation](double distance) {
        return 0.5 * std::erfc(-distance / (deviation * std::sqrt(2.0)));
    };
    std::vector<double> darkness(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        const double point = i + 0.5;
        darkness[static_cast<std::size_t>(i)] = below(point - margin) - below(point - (length - margin));
    }
    return darkness;
}

} // namespace

SoftShadow::SoftShadow(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    connect(this, &SoftShadow::changed, this, [this] { update(); });
}

void SoftShadow::paint(QPainter *painter)
{
    if (m_blurRadius <= 0.0)
        return;
    // One point of the shadow a logical pixel is enough for anything so soft.
    const QSize size = boundingRect().size().toSize();
    const std::vector<double> across = blurredStripe(size.width(), m_blurRadius);
    const std::vector<double> down = blurredStripe(size.height(), m_blurRadius);
    QImage shadow(size, QImage::Format_Alpha8);
    for (int y = 0; y < size.height(); ++y) {
        uchar *line = shadow.scanLine(y);
        const double row = 255.0 * m_strength * down[static_cast<std::size_t>(y)];
        for (int x = 0; x < size.width(); ++x)
            line[x] = static_cast<uchar>(std::lround(row * across[static_cast<std::size_t>(x)]));
    }
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), shadow);
}

} // namespace sonavo
