#pragma once

#include <QString>

namespace sonavo {

/// Where the processes of the user record the step that each has under way; empty when there is no home.
[[nodiscard]] QString moveJournalFolder();

} // namespace sonavo
