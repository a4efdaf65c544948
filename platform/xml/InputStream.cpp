// SPDX-License-Identifier: MIT
#include "platform/xml/InputStream.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/xml/XMLParserError.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

class FileInputStream final : public InputStream {
public:
    explicit FileInputStream(QString path)
        : m_path(std::move(path))
    {
    }

    ~FileInputStream() override
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    bool open(Error* error) override
    {
        // Without waiting: a pipe that nobody writes to would hold the opening up for ever.
        m_descriptor =
            ::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        struct stat status = {};
        if (m_descriptor >= 0 && ::fstat(m_descriptor, &status) == 0 && !S_ISREG(status.st_mode)) {
            ::close(m_descriptor);
            m_descriptor = -1;
            errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        }
        if (m_descriptor < 0) {
            setError(error, failure(localizedString("The file “%1” could not be opened: %2.")));
            return false;
        }
        ::posix_fadvise(m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
        return true;
    }

    qint64 read(char* buffer, qint64 maximumLength, Error* error) override
    {
        ssize_t length = 0;
        do {
            length = ::read(m_descriptor, buffer, static_cast<std::size_t>(maximumLength));
        } while (length < 0 && errno == EINTR);
        if (length < 0)
            setError(error, failure(localizedString("The file “%1” could not be read: %2.")));
        return length;
    }

    QString name() const override { return m_path; }

private:
    Error failure(const QString& text) const
    {
        return xmlParserError(XMLParserErrorCode::InputFailure,
                              text.arg(m_path, QString::fromLocal8Bit(std::strerror(errno))));
    }

    QString m_path;
    int m_descriptor = -1;
};

class DataInputStream final : public InputStream {
public:
    explicit DataInputStream(QByteArray data)
        : m_data(std::move(data))
    {
    }

    bool open(Error*) override
    {
        m_position = 0;
        return true;
    }

    qint64 read(char* buffer, qint64 maximumLength, Error*) override
    {
        const qint64 length = std::min<qint64>(maximumLength, m_data.size() - m_position);
        std::memcpy(buffer, m_data.constData() + m_position, static_cast<std::size_t>(length));
        m_position += length;
        return length;
    }

private:
    QByteArray m_data;
    qint64 m_position = 0;
};

} // namespace

std::unique_ptr<InputStream> InputStream::inputStreamWithURL(const QUrl& url)
{
    return url.isLocalFile() ? inputStreamWithPath(url.toLocalFile()) : nullptr;
}

std::unique_ptr<InputStream> InputStream::inputStreamWithPath(const QString& path)
{
    return path.isEmpty() ? nullptr : std::make_unique<FileInputStream>(path);
}

std::unique_ptr<InputStream> InputStream::inputStreamWithData(QByteArray data)
{
    return std::make_unique<DataInputStream>(std::move(data));
}

} // namespace platform
