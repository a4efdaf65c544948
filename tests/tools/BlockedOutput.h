// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>

#include <functional>

namespace test {

// A pipe as a program's standard output that takes a given number of bytes, and then holds the program until
// somebody reads.
class BlockedOutput {
public:
    explicit BlockedOutput(int bytesTaken);
    ~BlockedOutput();
    BlockedOutput(const BlockedOutput&) = delete;
    BlockedOutput& operator=(const BlockedOutput&) = delete;

    // To be called before the process is started.
    void attach(QProcess& process) const;
    // Bytes that the program has written and nobody has read.
    [[nodiscard]] int bytesWritten() const;
    // Everything that the program writes until its end.
    [[nodiscard]] QByteArray readAll();

private:
    int m_readEnd = -1;
    int m_writeEnd = -1;
    int m_padding = 0;
};

// Whether the process has a handler of its own for a signal.
[[nodiscard]] bool catchesSignal(const QProcess& process, int signal);
// Looks every few milliseconds until it holds; false when that takes longer than a minute.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

} // namespace test
