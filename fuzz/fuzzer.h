#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What libFuzzer calls with each input. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, // NOLINT(readability-identifier-naming)
                                      std::size_t size);

namespace sonavo {

/// Ends the program when something does not hold that must hold for every input; the fuzzer keeps the input.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

} // namespace sonavo
