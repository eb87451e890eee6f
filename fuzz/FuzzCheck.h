#pragma once

#include <cstdlib>

// A broken promise of the code under test ends the run, so the fuzzer keeps the input.
inline void fuzzCheck(bool condition)
{
    if (!condition)
        std::abort();
}
