// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <chrono>
#include <thread>

namespace test {

// Returns when there is a file of this name; at once for an empty name.
inline void waitForFile(const QString& path)
{
    while (!path.isEmpty() && !QFile::exists(path))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

} // namespace test
