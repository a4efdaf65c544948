// SPDX-License-Identifier: MIT
#include "formats/ArchivedColors.h"

#include "platform/attributedtext/ArchivedAttributes.h"
#include "platform/defaults/UserDefaults.h"

using platform::Color;

std::optional<Color> colorForDefaultsKey(const QString& key)
{
    const std::optional<QByteArray> archive = platform::UserDefaults::standard().dataForKey(key);
    const auto data = archive ? platform::colorFromArchiveData(*archive) : std::nullopt;
    return data ? std::optional(platform::textColorFromData(*data)) : std::nullopt;
}

std::optional<Color> colorOfArchivedObject(const platform::ArchiveValue& object)
{
    return platform::textColorFromArchivedObject(object);
}
