// SPDX-License-Identifier: MIT
#include "formats/QLEncryptedItemTypes.h"

#include "platform/core/LocalizedStrings.h"

#include <array>

namespace {

constexpr int documentType = 2;

constexpr std::array<const char*, 8> extensions = {
    "__UNKNOWN__",    "qlencryptnote",  "qlencryptdocument", "qlencryptimage",
    "qlencryptmovie", "qlencryptsound", "qlencryptbookmark", "qlencryptwebpage"};

constexpr std::array<const char*, 8> displayNames = {nullptr, "Note",  "Document", "Image",
                                                     "Sound", "Movie", "Bookmark", "Web Page"};

bool isInTable(int type)
{
    return type >= 0 && type < static_cast<int>(extensions.size());
}

} // namespace

int encryptedItemTypeForExtension(const QString& extension)
{
    const auto* const found =
        std::find_if(extensions.begin(), extensions.end(),
                     [&extension](const char* known) { return extension == QLatin1String(known); });
    return found == extensions.end() ? documentType : static_cast<int>(found - extensions.begin());
}

QString encryptedItemExtensionForType(int type)
{
    return isInTable(type) ? QString::fromLatin1(extensions[static_cast<std::size_t>(type)])
                           : QString();
}

QString encryptedItemDisplayNameForType(int type)
{
    if (!isInTable(type) || !displayNames[static_cast<std::size_t>(type)])
        return {};
    return platform::localizedString(displayNames[static_cast<std::size_t>(type)]);
}
