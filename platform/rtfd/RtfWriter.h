// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/rtfd/DocumentAttributes.h"

#include <QByteArray>

#include <functional>

namespace platform {

// Rich text in the forms that Cocoa writes. Attachments are left out; a package keeps them.
[[nodiscard]] QByteArray rtfFromAttributedString(const AttributedString& text,
                                                 const DocumentAttributes& attributes = {});

// The name under which an attachment's file lies beside the rich text.
using RtfAttachmentNamer = std::function<QString(const TextAttachment& attachment)>;

// The rich text of a package.
[[nodiscard]] QByteArray rtfWithAttachments(const AttributedString& text,
                                            const DocumentAttributes& attributes,
                                            const RtfAttachmentNamer& nameOf);

} // namespace platform
