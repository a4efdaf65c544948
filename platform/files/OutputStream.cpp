// SPDX-License-Identifier: MIT
#include "platform/files/OutputStream.h"

#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace platform {

OutputStream::OutputStream(QString path, Mode mode)
    : m_path(std::move(path))
    , m_mode(mode)
{
}

OutputStream::~OutputStream()
{
    close();
}

bool OutputStream::open(Error* error)
{
    if (isOpen())
        return true;
    const auto native = system::nativePath(m_path);
    const int modeFlag = m_mode == Mode::Append ? O_APPEND : O_TRUNC;
    system::Descriptor file;
    if (native)
        file = system::open(*native, O_WRONLY | O_CREAT | O_NOCTTY | O_NOFOLLOW | modeFlag,
                            system::newFileMode);
    if (!file.isOpen()) {
        setError(error, fileError(FileAccess::Write, m_path, native ? errno : EINVAL));
        return false;
    }
    m_descriptor = file.release();
    return true;
}

void OutputStream::close()
{
    static_cast<void>(system::Descriptor(std::exchange(m_descriptor, -1)).close());
}

qint64 OutputStream::write(QByteArrayView bytes, qint64 maximumLength)
{
    if (!isOpen() || maximumLength < 0)
        return -1;
    const qint64 length = std::min<qint64>(bytes.size(), maximumLength);
    ssize_t written = -1;
    do
        written = ::write(m_descriptor, bytes.data(), static_cast<size_t>(length));
    while (written < 0 && errno == EINTR);
    return written;
}

} // namespace platform
