// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfWriter.h"

#include "platform/rtfd/RtfBodyWriter.h"
#include "platform/rtfd/RtfDocumentHeader.h"

namespace platform {

namespace {

QByteArray wholeDocument(const AttributedString& text, const DocumentAttributes& attributes,
                         const RtfAttachmentNamer& nameOf)
{
    RtfBodyWriter writer(text, nameOf);
    writer.write();
    const RtfOutput header = rtfHeader(writer.fonts(), writer.colors(), writer.lists(), attributes);
    QByteArray document;
    document.reserve(header.size() + writer.body().size() + 1);
    document.append(header.view()).append(writer.body()).append('}');
    return document;
}

} // namespace

QByteArray rtfFromAttributedString(const AttributedString& text,
                                   const DocumentAttributes& attributes)
{
    return wholeDocument(text, attributes, {});
}

QByteArray rtfWithAttachments(const AttributedString& text, const DocumentAttributes& attributes,
                              const RtfAttachmentNamer& nameOf)
{
    return wholeDocument(text, attributes, nameOf);
}

} // namespace platform
