// SPDX-License-Identifier: MIT
#include "app/clipboard/VirtualDisplay.h"

#include <array>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

namespace {

[[noreturn]] void becomeServer(int numberPipe)
{
    // The server must not outlive a test that is killed.
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int nowhere = ::open("/dev/null", O_RDWR);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    const std::string number = std::to_string(numberPipe);
    ::execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1000x700x24",
             "-nolisten", "tcp", "-noreset", static_cast<char*>(nullptr));
    ::_exit(127);
}

} // namespace

VirtualDisplay::VirtualDisplay()
{
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0)
        return;
    m_server = ::fork();
    if (m_server == 0) {
        ::close(ends[0]);
        becomeServer(ends[1]);
    }
    ::close(ends[1]);
    // The server writes the number of a display that nobody had, and a line end, once it is ready.
    QByteArray line;
    char byte = 0;
    while (::read(ends[0], &byte, 1) == 1 && byte != '\n')
        line += byte;
    ::close(ends[0]);
    if (!line.isEmpty())
        m_name = ':' + line;
}

VirtualDisplay::~VirtualDisplay()
{
    if (m_server <= 0)
        return;
    ::kill(m_server, SIGTERM);
    ::waitpid(m_server, nullptr, 0);
}

} // namespace test
