#include "ui/controls/soft_shadow.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

namespace sonavo {
namespace {

/// The Gaussian blur of a box function that is 1 from `margin` to `length - margin` and 0 elsewhere, sampled
/// at pixel centres. The blur is separable: that of a rectangle is the product of two of these.
std::vector<double> blurredBox(int length, double margin)
{
    const double deviation = margin / 2.0;
    // Cumulative distribution function of the normal distribution.
    const auto cumulative = [deviation](double distance) {
        return 0.5 * std::erfc(-distance / (deviation * std::sqrt(2.0)));
    };
    std::vector<double> values(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        const double center = i + 0.5;
        values[static_cast<std::size_t>(i)] =
            cumulative(center - margin) - cumulative(center - (length - margin));
    }
    return values;
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
    // A resolution of one logical pixel is enough for something so blurred.
    const QSize size = boundingRect().size().toSize();
    const std::vector<double> across = blurredBox(size.width(), m_blurRadius);
    const std::vector<double> down = blurredBox(size.height(), m_blurRadius);
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
