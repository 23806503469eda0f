#pragma once

#include <QThread>

namespace sonavo {

/// The one thread in which songs are opened and played, in the order in which that is asked for: a song falls
/// silent before the next one is heard. It starts with the first call and ends with the application; what
/// still lives in it is then destroyed, as far as the sound server lets that happen. Main thread only.
[[nodiscard]] QThread &soundThread();

} // namespace sonavo
