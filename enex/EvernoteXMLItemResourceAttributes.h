// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

// What an ENEX file says about a resource beside its bytes: its resource-attributes.
class EvernoteXMLItemResourceAttributes {
public:
    [[nodiscard]] const QString& filename() const { return m_filename; }
    void setFilename(const QString& filename) { m_filename = filename; }
    void appendFilename(QUtf8StringView chunk) { m_filename += chunk.toString(); }

    [[nodiscard]] const std::optional<QDateTime>& timestamp() const { return m_timestamp; }
    void setTimestamp(const std::optional<QDateTime>& timestamp) { m_timestamp = timestamp; }

private:
    QString m_filename;
    std::optional<QDateTime> m_timestamp;
};
