// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>
#include <QVariant>

#include <ctime>
#include <sys/types.h>

namespace platform {

// One domain's property list as it stands on disk. Not for several threads at once.
class PreferencesFile {
public:
    explicit PreferencesFile(QString path);

    [[nodiscard]] const QString& path() const { return m_path; }

    // What the file holds; empty when it is missing or damaged. It is looked at once for each
    // occasion.
    [[nodiscard]] const QVariantMap& values(quint64 occasion);
    [[nodiscard]] bool write(const QVariantMap& values, Error* error);
    void forget() { m_isRead = false; }

private:
    // Tells one state of a file from the next.
    struct Fingerprint {
        bool exists = false;
        ino_t inode = 0;
        off_t size = 0;
        time_t seconds = 0;
        long nanoseconds = 0;

        friend bool operator==(const Fingerprint& left, const Fingerprint& right) = default;
    };

    [[nodiscard]] Fingerprint currentFingerprint() const;
    void read();
    bool keepDamagedFile(Error* error) const;

    QString m_path;
    QVariantMap m_values;
    Fingerprint m_fingerprint;
    Fingerprint m_reported;
    quint64 m_occasion = 0;
    bool m_isRead = false;
    bool m_isDamaged = false;
};

} // namespace platform
