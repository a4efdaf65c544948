// SPDX-License-Identifier: MIT
#include "tools/BlockedOutput.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <array>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace test {

BlockedOutput::BlockedOutput(int bytesTaken)
{
    std::array<int, 2> ends = {-1, -1};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
    // The smallest there is: one page, to which whatever fits is appended.
    const int capacity = fcntl(m_writeEnd, F_SETPIPE_SZ, 4096);
    EXPECT_GE(capacity, bytesTaken);
    m_padding = capacity - bytesTaken;
    EXPECT_EQ(write(m_writeEnd, QByteArray(m_padding, ' ').constData(), static_cast<size_t>(m_padding)),
              m_padding);
}

BlockedOutput::~BlockedOutput()
{
    close(m_readEnd);
    if (m_writeEnd >= 0)
        close(m_writeEnd);
}

void BlockedOutput::attach(QProcess& process) const
{
    process.setChildProcessModifier([end = m_writeEnd] { dup2(end, STDOUT_FILENO); });
}

int BlockedOutput::bytesWritten() const
{
    int waiting = 0;
    EXPECT_EQ(ioctl(m_readEnd, FIONREAD, &waiting), 0);
    return waiting - m_padding;
}

QByteArray BlockedOutput::readAll()
{
    close(m_writeEnd);
    m_writeEnd = -1;
    QByteArray all;
    std::array<char, 4096> bytes = {};
    for (ssize_t count = 0; (count = read(m_readEnd, bytes.data(), bytes.size())) > 0;)
        all.append(bytes.data(), count);
    return all.mid(m_padding);
}

bool catchesSignal(const QProcess& process, int signal)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(process.processId()));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray status = file.readAll();
    const qsizetype start = status.indexOf("SigCgt:") + 7;
    const quint64 mask
        = status.mid(start, status.indexOf('\n', start) - start).trimmed().toULongLong(nullptr, 16);
    return (mask >> (signal - 1)) & 1;
}

bool waitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > 60000)
            return false;
        QThread::msleep(2);
    }
    return true;
}

} // namespace test
