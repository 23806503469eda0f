#pragma once

#include <QObject>

namespace sonavo {

/// Marks presses that a held key repeats as such. On X11, Qt recognises a repeat only when it reads the
/// release and the next press at once; others look like presses of their own, which would delete one song
/// after the other. Both have the same time. To be installed on a window; main thread only.
class HeldKeyFilter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int m_releasedKey = 0;
    quint64 m_releaseTime = 0;
};

} // namespace sonavo
