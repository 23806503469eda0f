#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// An icon of the program, sharp at every size and scale factor.
class SymbolIcon : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Name of the icon, such as "speaker.wave.2.fill"; an empty or unknown name draws nothing.
    Q_PROPERTY(QString symbol MEMBER m_symbol NOTIFY changed REQUIRED)
    /// Of the whole icon; transparent leaves the icon its own colours.
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    /// Implicit width and height in logical pixels.
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
