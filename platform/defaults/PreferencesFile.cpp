// SPDX-License-Identifier: MIT
#include "platform/defaults/PreferencesFile.h"

#include "platform/core/SystemLog.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace platform {

PreferencesFile::PreferencesFile(QString path)
    : m_path(std::move(path))
{
}

const QVariantMap& PreferencesFile::values(quint64 occasion)
{
    if (m_isRead && m_occasion == occasion)
        return m_values;
    m_occasion = occasion;
    const Fingerprint fingerprint = currentFingerprint();
    if (!m_isRead || !(fingerprint == m_fingerprint)) {
        // Taken before the file is read: a change in between is then seen at the next look-up.
        m_fingerprint = fingerprint;
        read();
    }
    return m_values;
}

PreferencesFile::Fingerprint PreferencesFile::currentFingerprint() const
{
    struct stat status = {};
    if (stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    return {true, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void PreferencesFile::read()
{
    m_values.clear();
    m_isRead = true;
    m_isDamaged = false;
    if (!m_fingerprint.exists)
        return;
    Error error;
    const std::optional<QVariant> list = readPropertyList(m_path, &error);
    if (list && list->typeId() == QMetaType::QVariantMap) {
        m_values = list->toMap();
        return;
    }
    m_isDamaged = true;
    if (m_reported == m_fingerprint)
        return;
    m_reported = m_fingerprint;
    const QString reason =
        list ? QStringLiteral("it holds no dictionary") : error.localizedDescription();
    systemLog(QStringLiteral("Ignoring the settings in %1: %2").arg(m_path, reason));
}

bool PreferencesFile::write(const QVariantMap& values, Error* error)
{
    if (m_isDamaged && !keepDamagedFile(error))
        return false;
    if (!QDir().mkpath(QFileInfo(m_path).path())) {
        setError(error, propertyListError(PropertyListErrorCode::FileWrite,
                                          "The settings folder cannot be made."));
        return false;
    }
    forget();
    return writePropertyList(m_path, values, PropertyListFormat::Xml, error);
}

bool PreferencesFile::keepDamagedFile(Error* error) const
{
    const QString copy = m_path + QStringLiteral(".damaged");
    QFile::remove(copy);
    if (QFile::copy(m_path, copy))
        return true;
    setError(error, propertyListError(PropertyListErrorCode::FileWrite,
                                      "The damaged settings cannot be kept."));
    return false;
}

} // namespace platform
