// SPDX-License-Identifier: MIT
// The text of a ".url" file, through to the address and the URL that it makes.
#include "formats/QLWebBookmarkFileReading.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/UrlString.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto address = addressInShortcut(QString::fromUtf8(bytes));
    if (!address)
        return 0;
    for (const QChar unit : *address) {
        if (platform::isWhitespaceOrNewlineCharacter(unit.unicode()))
            std::abort();
    }
    const auto url = platform::urlWithString(*address);
    if (url && platform::urlWithString(platform::absoluteStringOfUrl(*url)) != url)
        std::abort();
    return 0;
}
