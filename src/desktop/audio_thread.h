#pragma once

#include <QThread>

namespace sonavo {

/// The single thread that opens and plays audio, in the order of the calls: one song is silenced before the
/// next is heard. Started by the first call. When the application ends, it gets 2 seconds to finish and
/// destroys the pipelines that still live in it; a sound server that hangs can prevent that. Main thread
/// only.
[[nodiscard]] QThread &audioThread();

} // namespace sonavo
