#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Called by libFuzzer with each input. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, // NOLINT(readability-identifier-naming)
                                      std::size_t size);

namespace sonavo {

/// Aborts when a property does not hold that must hold for every input; libFuzzer saves the input.
inline void require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

} // namespace sonavo
