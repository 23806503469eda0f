#include "ui/controls/symbol_icon.h"

#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <memory>

namespace sonavo {
namespace {

/// Each icon is loaded once.
QSvgRenderer &rendererOf(const QString &symbol)
{
    static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
    std::shared_ptr<QSvgRenderer> &renderer = renderers[symbol];
    if (!renderer)
        renderer = std::make_shared<QSvgRenderer>(QStringLiteral(":/qt/qml/Sonavo/icons/%1.svg").arg(symbol));
    return *renderer;
}

/// Whether the icon points to where texts go on, or come from, and is turned where they go to the left.
bool isMirrored(const QString &symbol)
{
    return QGuiApplication::isRightToLeft() &&
           (symbol.startsWith(u"arrow.uturn") || symbol.startsWith(u"chevron.right") ||
            symbol.startsWith(u"speaker"));
}

} // namespace

SymbolIcon::SymbolIcon(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    constexpr double DEFAULT_SIZE = 16.0;
    setSize(DEFAULT_SIZE);
    connect(this, &SymbolIcon::changed, this, [this] { update(); });
}

void SymbolIcon::setSize(double size)
{
    setImplicitSize(size, size);
}

void SymbolIcon::paint(QPainter *painter)
{
    if (m_symbol.isEmpty())
        return;
    // In an image of its own, so that the tint colours nothing but the icon.
    const double scale = painter->deviceTransform().m11();
    QImage image((size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter imagePainter(&image);
    rendererOf(m_symbol).render(&imagePainter);
    if (m_color.alpha() > 0) {
        imagePainter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        imagePainter.fillRect(image.rect(), m_color);
    }
    imagePainter.end();
    painter->drawImage(boundingRect(), isMirrored(m_symbol) ? image.mirrored(true, false) : image);
}

} // namespace sonavo
