// SPDX-License-Identifier: MIT
// Bytes as a keyed archive, binary or XML. What is unarchived can be archived, and comes back equal.
#include "platform/propertylist/ColorData.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedUnarchiver.h"

#include <cmath>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto root = platform::KeyedUnarchiver::unarchivedRootObject(bytes);
    if (!root)
        return 0;
    if (const auto color = platform::colorFromArchivedObject(*root)) {
        for (const double component : {color->red, color->green, color->blue, color->alpha}) {
            if (!(component >= 0 && component <= 1))
                std::abort();
        }
    }
    const auto archived = platform::KeyedArchiver::archivedDataWithRootObject(*root);
    if (!archived)
        return 0;
    const auto again = platform::KeyedUnarchiver::unarchivedRootObject(*archived);
    if (!again || platform::KeyedArchiver::archivedDataWithRootObject(*again) != archived)
        std::abort();
    return 0;
}
