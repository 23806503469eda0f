#pragma once

#include "theme/theme_manager.h"

#include <QObject>

namespace sonavo {

/// How much the views move. Main thread only.
class Motion : public QObject
{
    Q_OBJECT
    /// Whether springs, sweeps and pulses are left out. Fades stay.
    Q_PROPERTY(bool isReduced READ isReduced NOTIFY changed)

public:
    /// @param manager must outlive this
    explicit Motion(const ThemeManager &manager, QObject *parent = nullptr)
        : QObject(parent)
        , m_manager(manager)
    {
        connect(&manager, &ThemeManager::wishesChanged, this, &Motion::changed);
    }

    [[nodiscard]] bool isReduced() const { return m_manager.wishes().isMotionReduced; }

Q_SIGNALS:
    void changed();

private:
    const ThemeManager &m_manager;
};

} // namespace sonavo
