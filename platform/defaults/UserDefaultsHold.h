// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/UserDefaults.h"

namespace platform {

// While one lives, the files of the settings are looked at once and then count as unchanged: for
// work that looks settings up by the thousand, all of it under the same ones. What is set or
// written through the settings themselves is seen all the same.
class UserDefaultsHold {
public:
    // The settings must outlive it.
    explicit UserDefaultsHold(UserDefaults& defaults)
        : m_defaults(defaults)
    {
        m_defaults.beginHold();
    }
    ~UserDefaultsHold() { m_defaults.endHold(); }
    UserDefaultsHold(const UserDefaultsHold&) = delete;
    UserDefaultsHold& operator=(const UserDefaultsHold&) = delete;

private:
    UserDefaults& m_defaults;
};

} // namespace platform
