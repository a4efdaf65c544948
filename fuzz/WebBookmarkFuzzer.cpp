// SPDX-License-Identifier: MIT
// A bookmark file in any form of property list: what is read of it is written, and read again.
#include "formats/QLWebBookmarkFile.h"
#include "formats/QLWebBookmarkFileReading.h"
#include "platform/core/Url.h"
#include "platform/pasteboard/Pasteboard.h"

#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto contents =
        webBookmarkContents(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    const auto url = platform::Url::fromLooseString(contents.address).value_or(platform::Url());
    const auto bookmark = QLWebBookmarkFile::bookmarkWithName(contents.name, url);
    const auto written = bookmark->fileData();
    if (!written || webBookmarkContents(*written).address != url.absoluteString())
        std::abort();
    platform::Pasteboard pasteboard;
    QLWebBookmarkFile::writeBookmarkFiles({bookmark}, pasteboard);
    const auto pasted = QLWebBookmarkFile::bookmarksWithPasteboard(pasteboard);
    if (pasted.size() != 1 || (!url.isEmpty() && pasted.first()->URL() != url))
        std::abort();
    try {
        if (bookmark->suggestedFilename().contains(u'/'))
            std::abort();
    } catch (const std::out_of_range&) {
        // The one name that cannot be shortened: over 255 with an extension over 254.
    }
    return 0;
}
