#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// One of the program's own one-colour icons, crisp at every size and scale of the screen.
class SymbolIcon : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Identifier of the symbol, such as "speaker.wave.2.fill". None, and an unknown one, draw
    /// nothing.
    Q_PROPERTY(QString symbol MEMBER m_symbol NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    /// Width and height, in logical pixels, unless they are set otherwise.
    Q_PROPERTY(double size READ implicitHeight WRITE setSize NOTIFY implicitHeightChanged)

public:
    explicit SymbolIcon(QQuickItem *parent = nullptr);

    void setSize(double size);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    QString m_symbol;
    QColor m_color = Qt::black;
};

} // namespace sonavo
