// SPDX-License-Identifier: MIT
#include "platform/core/Bundle.h"

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

namespace platform {

Bundle& Bundle::main()
{
    static Bundle bundle;
    return bundle;
}

std::optional<QString> Bundle::pathForResource(const QString& name, const QString& type) const
{
    const QString file = name + QLatin1Char('.') + type;
    if (!m_resourceDirectory.isEmpty()) {
        const QString path = QDir(m_resourceDirectory).filePath(file);
        if (QFileInfo::exists(path))
            return path;
    }
    const QString compiledIn = QStringLiteral(":/vupuge/") + file;
    if (QFileInfo::exists(compiledIn))
        return compiledIn;
    return std::nullopt;
}

QString Bundle::shortVersionString() const { return QStringLiteral(VUPUGE_VERSION); }

QString operatingSystemVersionString() { return QSysInfo::prettyProductName(); }

} // namespace platform
