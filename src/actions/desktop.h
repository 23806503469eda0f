#pragma once

#include <QList>
#include <QUrl>

namespace sonavo {

/// What the session needs of the desktop around it. Main thread only.
class Desktop
{
public:
    Desktop() = default;
    virtual ~Desktop() = default;
    Q_DISABLE_COPY_MOVE(Desktop)

    /// Lets the person choose audio files and folders, several at once, and returns when they have decided.
    /// @return file URLs; empty when the person cancelled
    [[nodiscard]] virtual QList<QUrl> chooseMusic() = 0;
};

} // namespace sonavo
