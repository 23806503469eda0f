#pragma once

#include <QObject>

namespace sonavo {

/// Plays one song for a listening check. Main thread only.
class PreviewPlayer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Stops the sound where it is.
    virtual void pause() = 0;

    /// Lets go of the file.
    virtual void releaseItem() = 0;
};

} // namespace sonavo
