// SPDX-License-Identifier: MIT
#include "platform/attributedtext/TextAttributes.h"

namespace platform {

namespace {

bool areEqual(const std::shared_ptr<const ParagraphStyle>& left,
              const std::shared_ptr<const ParagraphStyle>& right)
{
    return left == right || (left && right && *left == *right);
}

} // namespace

bool operator==(const TextAttributes& left, const TextAttributes& right)
{
    return left.font == right.font && left.foregroundColor == right.foregroundColor &&
           left.backgroundColor == right.backgroundColor && left.underline == right.underline &&
           left.strikethrough == right.strikethrough &&
           left.underlineColor == right.underlineColor &&
           left.strikethroughColor == right.strikethroughColor &&
           left.superscript == right.superscript && left.baselineOffset == right.baselineOffset &&
           left.kern == right.kern && left.link == right.link &&
           left.attachment == right.attachment &&
           areEqual(left.paragraphStyle, right.paragraphStyle);
}

} // namespace platform
