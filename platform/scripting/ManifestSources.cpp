// SPDX-License-Identifier: MIT
#include "platform/scripting/ManifestSources.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/PackageLinks.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <cerrno>
#include <sys/stat.h>

namespace platform {

namespace {

ManifestSources::Source unsafe(const QString& path)
{
    const QString text = localizedString(
        "The manifest names \u201c%1\u201d, which does not lie safely in its files folder.");
    return {ManifestSources::State::Unsafe,
            {},
            quilleryLibraryError(QuilleryLibraryErrorCode::UnsafeManifest, text.arg(path))};
}

bool isPlainAbsolutePath(const QString& path)
{
    if (!path.startsWith(QLatin1Char('/')) || path.contains(QChar(0)))
        return false;
    const QStringList components = path.mid(1).split(QLatin1Char('/'));
    return std::none_of(components.begin(), components.end(), [](const QString& component) {
        return component.isEmpty() || component == QLatin1String(".") || component == QLatin1String("..");
    });
}

} // namespace

ManifestSources::ManifestSources(QString filesFolder, const QString& writtenAs)
    : m_filesFolder(std::move(filesFolder))
    , m_writtenAs(QDir::cleanPath(writtenAs))
{
}

std::optional<QString> ManifestSources::relativePathByText(const QString& absolutePath) const
{
    for (const QString& folder : {m_filesFolder, m_writtenAs}) {
        if (!folder.isEmpty() && absolutePath.startsWith(folder + QLatin1Char('/')))
            return absolutePath.mid(folder.size() + 1);
    }
    return std::nullopt;
}

QString ManifestSources::relativeFolder(const QString& folder)
{
    const auto known = m_relativeFolders.constFind(folder);
    if (known != m_relativeFolders.constEnd())
        return *known;
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    QString relative;
    if (canonical == m_filesFolder)
        relative = QStringLiteral("");
    else if (canonical.startsWith(m_filesFolder + QLatin1Char('/')))
        relative = canonical.mid(m_filesFolder.size() + 1) + QLatin1Char('/');
    m_relativeFolders.insert(folder, relative);
    return relative;
}

ManifestSources::Source ManifestSources::check(const QString& absolutePath)
{
    if (!isPlainAbsolutePath(absolutePath))
        return unsafe(absolutePath);
    const qsizetype separator = absolutePath.lastIndexOf(QLatin1Char('/'));
    const QString itsFolder = absolutePath.left(std::max<qsizetype>(separator, 1));
    const QString folder = relativeFolder(itsFolder);
    if (folder.isNull()) {
        // A folder that is gone has no canonical path; its items are missing, not dangerous.
        const auto relativePath = relativePathByText(absolutePath);
        if (!relativePath || QFileInfo::exists(itsFolder))
            return unsafe(absolutePath);
        return {State::Unavailable, *relativePath, fileError(FileAccess::Read, absolutePath, ENOENT)};
    }

    Source source{State::Whole, folder + absolutePath.mid(separator + 1), {}};
    const QString path = m_filesFolder + QLatin1Char('/') + source.relativePath;
    struct stat status = {};
    int failure = ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? 0 : errno;
    if (failure == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode))
        return unsafe(absolutePath);
    if (failure == 0 && S_ISDIR(status.st_mode)) {
        const PackageState state = packageState(path);
        if (state == PackageState::LeadsOut)
            return unsafe(absolutePath);
        if (state == PackageState::Unreadable)
            failure = EACCES;
    }
    if (failure != 0) {
        source.state = State::Unavailable;
        source.error = fileError(FileAccess::Read, absolutePath, failure);
    }
    return source;
}

} // namespace platform
