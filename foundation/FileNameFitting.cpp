// SPDX-License-Identifier: MIT
#include "foundation/FileNameFitting.h"

#include "foundation/StringBMExtensions.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/PathUtilities.h"

#include <QTextBoundaryFinder>

#include <stdexcept>

namespace {

// UTF-16 code units that are never too many for a file name, with or without an extension.
constexpr qsizetype longestName = 254;

qsizetype utf8Size(QStringView text)
{
    return text.toUtf8().size();
}

// The longest beginning that ends between two characters and has at most maximumBytes bytes.
QString beginningFitting(const QString& text, qsizetype maximumBytes)
{
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    qsizetype bytes = 0;
    for (qsizetype next = boundaries.toNextBoundary(); next > 0;
         next = boundaries.toNextBoundary()) {
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
    const QString base =
        forBase > 0 ? beginningFitting(name.chopped(extension.size()), forBase) : QString();
    // An extension that leaves no room for a name is cut like any other text.
    return base.isEmpty() ? beginningFitting(name, maximumBytes) : base + extension;
}

QString fileNameFromTitle(const QString& title)
{
    try {
        return stringSanitizedForFileName(title);
    } catch (const std::out_of_range&) {
        QString beginning =
            platform::trimmedOfWhitespaceAndNewlines(title).first(longestName).toString();
        if (beginning.back().isHighSurrogate())
            beginning.chop(1);
        return stringSanitizedForFileName(beginning);
    }
}
