// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/core/Error.h"
#include "platform/rtfd/DocumentAttributes.h"

#include <QByteArrayView>

#include <functional>
#include <memory>
#include <optional>

namespace platform {

// Makes the attachment for a file's name as the rich text has it.
using RtfAttachmentMaker = std::function<std::shared_ptr<TextAttachment>(const QString& name)>;

// Reads rich text of any writer, damaged or cut off: what can be made out is kept, what is not
// understood is passed over. Fails only when the bytes are no rich text at all. Text without a font
// is in Helvetica 12, as the platform has it. attributes: filled on success when given.
//
// Attachments that lie beside the text have no file wrapper; attachmentFor gives the reader of a
// package the chance to find theirs. Pictures within the text become attachments with their bytes.
[[nodiscard]] std::optional<AttributedString>
attributedStringFromRtf(QByteArrayView rtf, DocumentAttributes* attributes = nullptr,
                        Error* error = nullptr);
[[nodiscard]] std::optional<AttributedString>
attributedStringFromRtf(QByteArrayView rtf, const RtfAttachmentMaker& attachmentFor,
                        DocumentAttributes* attributes = nullptr, Error* error = nullptr);

} // namespace platform
