// SPDX-License-Identifier: MIT
#include "foundation/FileManagerAliasesBMExtensions.h"

#include "platform/files/AliasFile.h"

bool isAlias(bool* flag, const QUrl& url, platform::Error* error)
{
    const auto answer = platform::isAlias(url.toLocalFile(), error);
    if (answer && flag)
        *flag = *answer;
    return answer.has_value();
}

bool isAliasAtURL(const QUrl& url)
{
    bool flag = false;
    return isAlias(&flag, url) && flag;
}

std::optional<QUrl> originalURLForAliasAtURL(const QUrl& url, platform::Error* error)
{
    const auto path = platform::resolvedAliasPath(url.toLocalFile(), error);
    return path ? std::optional(QUrl::fromLocalFile(*path)) : std::nullopt;
}
