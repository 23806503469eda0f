#pragma once

#include <QThreadPool>

#include <memory>
#include <utility>

namespace sonavo {

/// Destroys a value in another thread: long lists take the main thread longer than a frame.
template <typename T>
void releaseLater(T value)
{
    QThreadPool::globalInstance()->start([held = std::make_shared<T>(std::move(value))] {});
}

} // namespace sonavo
