// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfReader.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/rtfd/RtfBodyReader.h"

namespace platform {

std::optional<AttributedString> attributedStringFromRtf(QByteArrayView rtf,
                                                        const RtfAttachmentMaker& attachmentFor,
                                                        DocumentAttributes* attributes,
                                                        Error* error)
{
    // White space and a mark of UTF-8 may stand before it.
    QByteArrayView start = rtf.first(std::min<qsizetype>(rtf.size(), 1024)).trimmed();
    if (start.startsWith("\xEF\xBB\xBF"))
        start = start.sliced(3);
    if (!start.startsWith("{\\rtf")) {
        setError(error, Error(cocoaErrorDomain, FileReadCorruptFileError,
                              localizedString("The file isn’t in the correct format.")));
        return std::nullopt;
    }
    RtfBodyReader reader(rtf.sliced(start.data() - rtf.data()), attachmentFor);
    AttributedString text = reader.read();
    if (attributes)
        *attributes = reader.attributes();
    return text;
}

std::optional<AttributedString>
attributedStringFromRtf(QByteArrayView rtf, DocumentAttributes* attributes, Error* error)
{
    return attributedStringFromRtf(rtf, RtfAttachmentMaker(), attributes, error);
}

} // namespace platform
