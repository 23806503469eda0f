#pragma once

#include <QString>

namespace sonavo {

/// Why an operation did not happen.
struct Failure
{
    /// In words for the user; never empty. What the system says is in its language.
    QString reason;
};

} // namespace sonavo
