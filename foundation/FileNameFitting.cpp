// SPDX-License-Identifier: MIT
#include "foundation/FileNameFitting.h"

#include "foundation/StringBMExtensions.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"

#include <QTextBoundaryFinder>

#include <stdexcept>

namespace {

// Bytes for " 1234567", the number that makes a name unique.
constexpr qsizetype roomForNumber = 8;
// UTF-16 code units that are never too many for a file name, with or without an extension.
constexpr qsizetype longestName = 254;

qsizetype utf8Size(QStringView text) { return text.toUtf8().size(); }

QString numberedName(const QString& name, qint64 number)
{
    QString extension = platform::pathExtension(name);
    if (!extension.isEmpty())
        extension.prepend(QLatin1Char('.'));
    return platform::stringByDeletingPathExtension(name) + QLatin1Char(' ') + QString::number(number) + extension;
}

// The longest beginning that ends between two characters and has at most maximumBytes bytes.
QString beginningFitting(const QString& text, qsizetype maximumBytes)
{
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    qsizetype bytes = 0;
    for (qsizetype next = boundaries.toNextBoundary(); next > 0; next = boundaries.toNextBoundary()) {
        bytes += utf8Size(QStringView(text).sliced(end, next - end));
        if (bytes > maximumBytes)
            break;
        end = next;
    }
    return text.first(end);
}

} // namespace

QString fileNameFittingBytes(const QString& name, qsizetype maximumBytes)
{
    if (utf8Size(name) <= maximumBytes)
        return name;
    QString extension = platform::pathExtension(name);
    if (!extension.isEmpty())
        extension.prepend(QLatin1Char('.'));
    const qsizetype forBase = maximumBytes - utf8Size(extension);
    const QString base = forBase > 0 ? beginningFitting(name.chopped(extension.size()), forBase) : QString();
    // An extension that leaves no room for a name is cut like any other text.
    return base.isEmpty() ? beginningFitting(name, maximumBytes) : base + extension;
}

QString freeFileNameInDirectoryAtURL(const QString& name, const QUrl& directoryUrl)
{
    const QString folder = directoryUrl.toLocalFile() + QLatin1Char('/');
    const QString free
        = makeFilenameUniqueInDirectoryAtURL(fileNameFittingBytes(name, platform::maximumFileNameBytes), directoryUrl);
    if (utf8Size(free) <= platform::maximumFileNameBytes && !platform::fileExistsAtPath(folder + free))
        return free;
    // The number made it too long, or went the way of what cannot stand in a file name: a line break, or
    // length. It stays behind a name that is short and clean.
    QString clean
        = stringSanitizedForFileName(fileNameFittingBytes(name, platform::maximumFileNameBytes - roomForNumber));
    if (clean.isEmpty())
        clean = QLatin1Char('-');
    return makeFilenameUniqueInDirectoryAtURL(clean, directoryUrl);
}

FreeFileNames::FreeFileNames(const QUrl& directoryUrl)
    : m_directoryUrl(directoryUrl)
{
}

QString FreeFileNames::freeName(const QString& name)
{
    const auto seen = m_nextNumbers.find(name);
    if (seen == m_nextNumbers.end()) {
        m_nextNumbers.insert(name, 1);
        return freeFileNameInDirectoryAtURL(name, m_directoryUrl);
    }
    const QString folder = m_directoryUrl.toLocalFile() + QLatin1Char('/');
    for (;;) {
        const QString candidate = numberedName(name, (*seen)++);
        // A numbered name that is changed for the file system, or too long for it, is the other function's.
        if (stringSanitizedForFileName(candidate) != candidate || utf8Size(candidate) > platform::maximumFileNameBytes)
            return freeFileNameInDirectoryAtURL(name, m_directoryUrl);
        if (!platform::fileExistsAtPath(folder + candidate))
            return candidate;
    }
}

QString fileNameFromTitle(const QString& title)
{
    try {
        return stringSanitizedForFileName(title);
    } catch (const std::out_of_range&) {
        QString beginning = title.trimmed().first(longestName);
        if (beginning.back().isHighSurrogate())
            beginning.chop(1);
        return stringSanitizedForFileName(beginning);
    }
}
