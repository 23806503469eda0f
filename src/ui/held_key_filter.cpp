#include "ui/held_key_filter.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace sonavo {

bool HeldKeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (event->type() == QEvent::KeyRelease) {
        m_releasedKey = key->key();
        m_releaseTime = key->timestamp();
        return false;
    }
    if (key->isAutoRepeat() || key->key() != m_releasedKey || key->timestamp() != m_releaseTime)
        return false;
    QKeyEvent repeat(QEvent::KeyPress, key->key(), key->modifiers(), key->nativeScanCode(),
                     key->nativeVirtualKey(), key->nativeModifiers(), key->text(), true,
                     static_cast<quint16>(key->count()));
    repeat.setTimestamp(key->timestamp());
    QCoreApplication::sendEvent(watched, &repeat);
    event->setAccepted(repeat.isAccepted());
    return true;
}

} // namespace sonavo
