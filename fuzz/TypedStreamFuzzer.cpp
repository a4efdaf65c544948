// SPDX-License-Identifier: MIT
// Bytes as a legacy archive: whatever it holds, its colours are colours, and it takes no more memory
// than its bytes can mean.
#include "platform/propertylist/ColorData.h"
#include "platform/propertylist/TypedStream.h"

#include <cstdlib>

namespace {

void check(const platform::TypedStreamColor& color)
{
    if (color.components.size() < 2 || color.components.size() > 5)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    if (const auto color = platform::colorFromArchiveData(bytes)) {
        for (const double component : {color->red, color->green, color->blue, color->alpha}) {
            if (!(component >= 0 && component <= 1))
                std::abort();
        }
    }
    const auto stream = platform::TypedStream::fromData(bytes);
    if (!stream)
        return 0;
    std::size_t count = stream->values().size();
    for (const platform::TypedStream::Object& object : stream->objects())
        count += 1 + object.values.size();
    if (count > size)
        std::abort();
    if (const auto color = stream->color())
        check(*color);
    for (const auto& [name, color] : stream->namedColors())
        check(color);
    return 0;
}
