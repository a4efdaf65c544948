// SPDX-License-Identifier: MIT
#include "tools/InterruptWatcher.h"

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

// A signal handler may do little more than write a byte into a pipe.
std::array<int, 2> signalPipe = {-1, -1};

extern "C" void handleSignal(int)
{
    // Whichever of the two comes next ends the process.
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    const char byte = 1;
    static_cast<void>(!write(signalPipe[1], &byte, 1));
}

void watch(int signal)
{
    struct sigaction action = {};
    action.sa_handler = handleSignal;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

InterruptWatcher::InterruptWatcher(std::function<void()> interrupted)
{
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [interrupted = std::move(interrupted)] {
        char byte = 0;
        if (read(signalPipe[0], &byte, 1) == 1)
            interrupted();
    });
    watch(SIGINT);
    watch(SIGTERM);
}

InterruptWatcher::~InterruptWatcher()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    m_notifier = nullptr;
    close(signalPipe[0]);
    close(signalPipe[1]);
}
