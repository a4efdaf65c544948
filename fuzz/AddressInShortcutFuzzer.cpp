// SPDX-License-Identifier: MIT
// The bytes of a ".url" file, through to the address and the bookmark that it makes.
#include "formats/QLWebBookmarkFile.h"
#include "formats/QLWebBookmarkFileReading.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/Url.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray file(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto address = addressInShortcut(file);
    if (address.has_value() != file.contains("URL="))
        std::abort();
    if (!address)
        return 0;
    for (const QChar unit : *address) {
        if (platform::isWhitespaceOrNewlineCharacter(unit.unicode()))
            std::abort();
    }
    const auto url = platform::Url::fromLooseString(*address);
    if (!url)
        return 0;
    // Read as it is written, and known for the same address by Qt where Qt takes it.
    if (platform::Url::fromString(url->absoluteString()) != url)
        std::abort();
    static_cast<void>(platform::Url(url->toQUrl()));
    static_cast<void>(QLWebBookmarkFile::bookmarkWithName(QString(), *url)->name());
    return 0;
}
