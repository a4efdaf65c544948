// SPDX-License-Identifier: MIT
// A bookmark file in any form of property list: what is read of it is written, and read again.
#include "formats/QLWebBookmarkFile.h"
#include "formats/QLWebBookmarkFileReading.h"
#include "platform/core/UrlString.h"

#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto contents =
        webBookmarkContents(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    const auto url = platform::urlWithString(contents.address);
    const auto bookmark = QLWebBookmarkFile::bookmarkWithName(contents.name, url.value_or(QUrl()));
    const auto written = bookmark->fileData();
    if (!written)
        std::abort();
    const auto again = webBookmarkContents(*written);
    if (again.address != platform::absoluteStringOfUrl(bookmark->URL()))
        std::abort();
    try {
        if (bookmark->suggestedFilename().contains(u'/'))
            std::abort();
    } catch (const std::out_of_range&) {
        // The one name that cannot be shortened: over 255 with an extension over 254.
    }
    return 0;
}
