#pragma once

#include <QString>

namespace sonavo {

/// Why an operation on a file did not happen. Operations that can fail return an optional one of these:
/// nothing means success.
struct Failure
{
    /// In words for the person; never empty. What the system says is in its language.
    QString reason;
};

} // namespace sonavo
