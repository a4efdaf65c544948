// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <memory>

namespace platform {

// A source of bytes that is read once, from its beginning.
class InputStream {
public:
    InputStream() = default;
    virtual ~InputStream() = default;
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // A stream on a local file; none for a URL that names no local file. Whether the file is there
    // is found out when the stream is opened.
    [[nodiscard]] static std::unique_ptr<InputStream> inputStreamWithURL(const QUrl& url);
    [[nodiscard]] static std::unique_ptr<InputStream> inputStreamWithPath(const QString& path);
    // A stream on bytes in memory.
    [[nodiscard]] static std::unique_ptr<InputStream> inputStreamWithData(QByteArray data);

    [[nodiscard]] virtual bool open(Error* error = nullptr) = 0;

    // Reads at most maximumLength bytes; returns how many were read, 0 at the end, -1 on failure.
    [[nodiscard]] virtual qint64 read(char* buffer, qint64 maximumLength,
                                      Error* error = nullptr) = 0;

    // What a text for the user calls the source: a file's path, or nothing.
    [[nodiscard]] virtual QString name() const { return {}; }
};

} // namespace platform
