#pragma once

#include <QCoroTask>

#include <functional>

namespace sonavo {

/// Does work in a thread of Qt's global pool. The caller resumes in the thread that it was suspended in, at a
/// turn of its event loop.
[[nodiscard]] QCoro::Task<> runInBackground(std::function<void()> work);

} // namespace sonavo
