// SPDX-License-Identifier: MIT
#include "platform/attributedtext/TextAttachment.h"

namespace platform {

TextAttachment::TextAttachment(std::shared_ptr<FileWrapper> fileWrapper)
    : m_fileWrapper(std::move(fileWrapper))
{
}

TextAttachment::~TextAttachment() = default;

} // namespace platform
