// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

namespace platform {

// How long a caller waits for an answer, in milliseconds.
struct CallLimits {
    // A question that every application answers from memory: its version, whether it runs.
    int question = 25000;
    // A list, for which an application may have to look through all its notes.
    int list = 120000;
    // Coming up; the bus itself gives an application two minutes.
    int start = 130000;
    // An export or import takes as long as it takes. The bus library documents this value as "no
    // limit"; the bus answers in the application's place when that goes away.
    static constexpr int work = std::numeric_limits<int>::max();
};

} // namespace platform
