// SPDX-License-Identifier: MIT
#include "formats/ColorArchives.h"

#include "platform/propertylist/KeyedArchiver.h"

namespace test {

using platform::ArchivedObject;

QByteArray legacyColorArchive()
{
    return {"\x04\x0Bstreamtyped\x81\xE8\x03\x84\x01@\x84\x84\x84\x07NSColor\x00\x84\x84\x08NSObject\x00\x85\x84\x01"
            "c\x01\x84\x04"
            "ffff\x01\x83\x00\x00\x00\x3F\x00\x01\x86",
            63};
}

QByteArray keyedColorArchive()
{
    using Form = ArchivedObject::Field::Form;
    ArchivedObject color;
    color.classNames = {QStringLiteral("NSColor"), QStringLiteral("NSObject")};
    color.fields = {{QStringLiteral("NSColorSpace"), Form::Plain, QVariant(1), {}},
                    {QStringLiteral("NSRGB"), Form::Plain, QByteArray("1 0.5 0\0", 8), {}}};
    return platform::KeyedArchiver::archivedDataWithRootObject(platform::ArchiveValue::unknown(color))
        .value_or(QByteArray());
}

} // namespace test
