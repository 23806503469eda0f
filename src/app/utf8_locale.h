#pragma once

namespace sonavo {

/// Sets the user's locale, or C.UTF-8 where its encoding is not UTF-8: Qt warns about any other, and file
/// names are UTF-8. The language of messages stays that of the environment. To be called before any thread is
/// started and before the application object is created.
void useUtf8Locale();

} // namespace sonavo
