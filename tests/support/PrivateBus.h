// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScratchFolder.h"

#include <QProcess>

namespace test {

// A session bus of the test's own, and the programs on it. Nothing of it outlives the test: what
// the bus started must end when the bus does.
class PrivateBus {
public:
    PrivateBus() = default;
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    // A program that the bus starts when its name is asked for; before start().
    void addService(const QString& name, const QStringList& command) const;
    // How long the bus waits for what it starts; before start().
    void setStartLimit(int milliseconds) { m_startLimit = milliseconds; }
    void start();

    [[nodiscard]] const QString& address() const { return m_address; }
    // For a program that is to find the bus.
    [[nodiscard]] QProcessEnvironment environment() const;
    // As if the power had failed.
    void kill();
    // SIGSTOP, SIGCONT.
    void send(int signal) const;

private:
    test::ScratchFolder m_folder;
    int m_startLimit = 60000;
    QProcess m_daemon;
    QString m_address;
};

// Has the kernel end a process when the test's own ends. To be called before the process is
// started.
void endWithTest(QProcess& process);

} // namespace test
