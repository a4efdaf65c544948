// SPDX-License-Identifier: MIT
#include "foundation/StringComparingBMExtensions.h"

#include "platform/core/TextMatching.h"

bool startsWith(const QString& text, const QString& prefix)
{
    return text.size() >= prefix.size()
           && platform::isEqualIgnoringCase(QStringView(text).first(prefix.size()), prefix);
}

bool endsWith(const QString& text, const QString& suffix)
{
    return text.size() >= suffix.size()
           && platform::isEqualIgnoringCase(QStringView(text).last(suffix.size()), suffix);
}

bool containsString(const QString& text, const QString& other) { return platform::containsIgnoringCase(text, other); }

bool isCaseInsensitiveEqualToString(const QString& text, const QString& other)
{
    return platform::isEqualIgnoringCase(text, other);
}
