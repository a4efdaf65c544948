// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace bench {

// The same numbers for the same seed on every machine, which std::uniform_int_distribution does not
// promise. The step is splitmix64.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : m_state(seed)
    {
    }

    std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15ULL;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
        return mixed ^ (mixed >> 31);
    }

    // 0 to bound - 1.
    int below(int bound) { return static_cast<int>(next() % static_cast<std::uint64_t>(bound)); }
    bool oneIn(int count) { return below(count) == 0; }

private:
    std::uint64_t m_state;
};

} // namespace bench
