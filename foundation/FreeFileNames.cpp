// SPDX-License-Identifier: MIT
#include "foundation/FreeFileNames.h"

#include "foundation/FileNameFitting.h"
#include "foundation/StringBMExtensions.h"
#include "platform/files/FileManager.h"

namespace {

// Bytes for " 1234567", the number that makes a name unique.
constexpr qsizetype roomForNumber = 8;

} // namespace

QString FreeFileNames::freeName(const QString& name, const QUrl& directoryUrl)
{
    const QString folder = directoryUrl.toLocalFile() + QLatin1Char('/');
    const QString free =
        uniqueName(fileNameFittingBytes(name, platform::maximumFileNameBytes), directoryUrl);
    if (free.toUtf8().size() <= platform::maximumFileNameBytes &&
        !platform::fileExistsAtPath(folder + free))
        return free;
    // The number made it too long, or went the way of what cannot stand in a file name: a line
    // break, or length. It stays behind a name that is short and clean.
    QString clean = stringSanitizedForFileName(
        fileNameFittingBytes(name, platform::maximumFileNameBytes - roomForNumber));
    if (clean.isEmpty())
        clean = QLatin1Char('-');
    return uniqueName(clean, directoryUrl);
}

QString FreeFileNames::uniqueName(const QString& name, const QUrl& directoryUrl)
{
    const QString path = directoryUrl.toLocalFile() + QLatin1Char('/') + name;
    qint64 number = m_lastNumbers.value(path, 1);
    const QString unique = makeFilenameUniqueInDirectoryAtURL(name, directoryUrl, number);
    // Names that nothing else wants, as most are, cost no memory.
    if (number > 1)
        m_lastNumbers.insert(path, number);
    return unique;
}

QString freeFileNameInDirectoryAtURL(const QString& name, const QUrl& directoryUrl)
{
    return FreeFileNames().freeName(name, directoryUrl);
}
