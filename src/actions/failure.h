#pragma once

#include <QString>

#include <system_error>

namespace sonavo {

/// Why an operation did not happen.
struct Failure
{
    /// Text for the user in one line; never empty. Messages of the operating system are in the system's
    /// language.
    QString reason;
    /// As in errno; 0 where the reason is none of the operating system's.
    int error = 0;
};

/// The operating system's words for an error number.
[[nodiscard]] inline QString errorText(int error)
{
    return QString::fromLocal8Bit(std::generic_category().message(error));
}

} // namespace sonavo
