// SPDX-License-Identifier: MIT
#include "platform/webview/FileFetch.h"

#include "platform/webview/ContentType.h"
#include "platform/webview/UrlText.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

// As much as is read in one turn of the event loop, well under a millisecond's work.
constexpr qsizetype stepBytes = 1 << 20;

} // namespace

FileFetch::FileFetch(const FetchRequest& request, const LoadLimits& limits)
    : Fetch(request, limits)
{
}

FileFetch::~FileFetch()
{
    close();
}

void FileFetch::cancel()
{
    close();
    Fetch::cancel();
}

void FileFetch::close()
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

void FileFetch::begin()
{
    const QByteArray path = QFile::encodeName(urlOfAddress(request().address).toLocalFile());
    if (path.isEmpty() || path.contains('\0')) {
        fail(urlError(UrlErrorFileDoesNotExist));
        return;
    }
    // Without O_NONBLOCK opening a pipe would wait for its writer.
    m_descriptor = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (m_descriptor < 0) {
        const bool forbidden = errno == EACCES || errno == EPERM;
        fail(urlError(forbidden ? UrlErrorNoPermissionsToReadFile : UrlErrorFileDoesNotExist));
        return;
    }
    struct stat status = {};
    if (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        fail(urlError(S_ISDIR(status.st_mode) ? UrlErrorFileIsDirectory : UrlErrorNoPermissionsToReadFile));
        return;
    }
    m_size = status.st_size;
    if (m_size > limits().resourceBytes) {
        fail(urlError(UrlErrorDataLengthExceedsMaximum));
        return;
    }
    reserve(m_size);
    read();
}

void FileFetch::read()
{
    QByteArray bytes(qMin(stepBytes, qsizetype(m_size) + 1), Qt::Uninitialized);
    const ssize_t count = ::read(m_descriptor, bytes.data(), size_t(bytes.size()));
    if (count < 0) {
        fail(urlError(UrlErrorNoPermissionsToReadFile));
        return;
    }
    bytes.truncate(count);
    if (!m_responded) {
        m_responded = true;
        QString type = mimeTypeForPath(request().address);
        if (type.isEmpty())
            type = mimeTypeOfBytes(bytes);
        respond(URLResponse(request().address, type, m_size, QString()));
    }
    // Fewer bytes than were asked for means the end of a regular file.
    const bool atEnd = count < qMin(stepBytes, qsizetype(m_size) + 1);
    if (!receive(bytes))
        return;
    if (atEnd)
        finish();
    else
        later([this] { read(); });
}

} // namespace platform
