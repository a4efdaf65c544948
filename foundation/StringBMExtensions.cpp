// SPDX-License-Identifier: MIT
#include "foundation/StringBMExtensions.h"

#include "platform/core/CharacterSet.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"

#include <stdexcept>

namespace {

constexpr qsizetype maximumLength = 255;

void shortenKeepingExtension(QString& name)
{
    const QString extension = platform::pathExtension(name);
    const qsizetype kept = maximumLength - 1 - extension.size();
    if (kept < 0)
        throw std::out_of_range("file name extension too long to shorten the name before it");
    name.truncate(kept);
    if (!extension.isEmpty())
        name += QLatin1Char('.') + extension;
}

} // namespace

QString stringSanitizedForFileName(const QString& text)
{
    QString name = platform::trimmedOfWhitespaceAndNewlines(text).toString();
    if (name.startsWith(QLatin1Char('.')))
        name[0] = QLatin1Char('-');
    for (QChar& character : name) {
        if (character == QLatin1Char('/') || character == QLatin1Char(':') ||
            character == QLatin1Char('~'))
            character = QLatin1Char('-');
    }
    const auto lineBreak = std::find_if(name.cbegin(), name.cend(), [](QChar character) {
        return platform::isNewlineCharacter(character.unicode());
    });
    name.truncate(lineBreak - name.cbegin());
    if (name.size() > maximumLength)
        shortenKeepingExtension(name);
    return name;
}

QString makeFilenameUniqueInDirectoryAtURL(const QString& name, const QUrl& directoryUrl)
{
    qint64 first = 1;
    return makeFilenameUniqueInDirectoryAtURL(name, directoryUrl, first);
}

QString makeFilenameUniqueInDirectoryAtURL(const QString& name, const QUrl& directoryUrl,
                                           qint64& number)
{
    const QString folder = directoryUrl.toLocalFile() + QLatin1Char('/');
    if (!platform::fileExistsAtPath(folder + name))
        return name;
    const QString base = platform::stringByDeletingPathExtension(name);
    QString extension = platform::pathExtension(name);
    if (!extension.isEmpty())
        extension.prepend(QLatin1Char('.'));
    for (;; ++number) {
        const QString candidate = base + QLatin1Char(' ') + QString::number(number) + extension;
        if (!platform::fileExistsAtPath(folder + candidate))
            return stringSanitizedForFileName(candidate);
    }
}
