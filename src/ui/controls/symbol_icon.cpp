#include "ui/controls/symbol_icon.h"

#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <memory>

namespace sonavo {
namespace {

/// The drawing of a symbol, read once.
QSvgRenderer &rendererOf(const QString &symbol)
{
    static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
    std::shared_ptr<QSvgRenderer> &renderer = renderers[symbol];
    if (!renderer)
        renderer = std::make_shared<QSvgRenderer>(QStringLiteral(":/qt/qml/Sonavo/icons/%1.svg").arg(symbol));
    return *renderer;
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
    // Drawn aside: the tint must colour the symbol alone, and the painter may hold more than that.
    const double scale = painter->deviceTransform().m11();
    QImage drawing((size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter tinting(&drawing);
    rendererOf(m_symbol).render(&tinting);
    tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tinting.fillRect(drawing.rect(), m_color);
    tinting.end();
    painter->drawImage(boundingRect(), drawing);
}

} // namespace sonavo
