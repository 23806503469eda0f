#pragma once

#include <QString>

namespace sonavo {

/// Why an operation did not happen.
struct Failure
{
    /// Text for the user; never empty. Messages of the operating system are in the system's language.
    QString reason;
    /// As in errno; 0 where the reason is none of the operating system's.
    int error = 0;
};

} // namespace sonavo
