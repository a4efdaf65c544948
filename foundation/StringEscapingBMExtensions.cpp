// SPDX-License-Identifier: MIT
#include "foundation/StringEscapingBMExtensions.h"

#include "platform/core/UrlString.h"

QString stringByEscapingBackslashes(const QString& text)
{
    QString escaped = text;
    return escaped.replace(u'\\', QStringLiteral("\\\\"));
}

QString stringByEscapingQuotes(const QString& text)
{
    QString escaped = text;
    return escaped.replace(u'\'', QStringLiteral("\\'")).replace(u'"', QStringLiteral("\\\""));
}

QString percentEncodedURLString(const QString& text)
{
    return platform::urlTextFromString(text);
}
