#include "model/random_id.h"

#include <sys/random.h>

#include <array>
#include <cstddef>

namespace sonavo {
namespace {

using RandomBytes = std::array<char, 16>;

QUuid idOf(RandomBytes bytes)
{
    constexpr std::size_t VERSION = 6;
    constexpr std::size_t VARIANT = 8;
    bytes[VERSION] = static_cast<char>((bytes[VERSION] & 0x0F) | 0x40);
    bytes[VARIANT] = static_cast<char>((bytes[VARIANT] & 0x3F) | 0x80);
    return QUuid::fromRfc4122(QByteArrayView(bytes.data(), bytes.size()));
}

} // namespace

QUuid randomId()
{
    // The kernel gives many at once in hardly more time than one.
    thread_local std::array<RandomBytes, 256> random;
    thread_local std::size_t next = random.size();
    if (next == random.size()) {
        if (::getrandom(random.data(), sizeof random, 0) != static_cast<ssize_t>(sizeof random))
            return QUuid::createUuid();
        next = 0;
    }
    return idOf(random[next++]);
}

} // namespace sonavo
