// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArrayView>
#include <QString>

namespace platform {

// A stream of bytes into a file.
class OutputStream {
public:
    enum class Mode { Overwrite, Append };

    OutputStream(QString path, Mode mode);
    ~OutputStream();
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    [[nodiscard]] bool open(Error* error = nullptr);
    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    void close();

    // Writes at most maximumLength of the bytes; returns how many were written, or -1 on failure or
    // when the stream is not open. Safe to call from several threads: one call is one write.
    qint64 write(QByteArrayView bytes, qint64 maximumLength);

    [[nodiscard]] const QString& path() const { return m_path; }

private:
    QString m_path;
    Mode m_mode;
    int m_descriptor = -1;
};

} // namespace platform
