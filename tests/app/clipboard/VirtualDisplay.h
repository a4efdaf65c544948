// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <sys/types.h>

namespace test {

// A display in memory (Xvfb), there for as long as the object, and gone with the program even when
// that is killed. No window manager runs on it.
class VirtualDisplay {
public:
    VirtualDisplay();
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    // False where Xvfb is not installed or does not start.
    [[nodiscard]] bool isOpen() const { return !m_name.isEmpty(); }
    // For the environment variable DISPLAY.
    [[nodiscard]] const QByteArray& name() const { return m_name; }

private:
    pid_t m_server = -1;
    QByteArray m_name;
};

} // namespace test
