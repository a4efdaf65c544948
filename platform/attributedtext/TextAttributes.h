// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"
#include "platform/attributedtext/Font.h"
#include "platform/attributedtext/ParagraphStyle.h"
#include "platform/attributedtext/TextAttachment.h"

#include <QString>

#include <memory>
#include <optional>

namespace platform {

enum class LineStyle { None, Single, Thick, Double };

// The attributes of a run of characters. An absent value means that the run says nothing about it.
struct TextAttributes {
    std::optional<Font> font;
    std::optional<Color> foregroundColor;
    std::optional<Color> backgroundColor;
    LineStyle underline = LineStyle::None;
    LineStyle strikethrough = LineStyle::None;
    std::optional<Color> underlineColor;
    std::optional<Color> strikethroughColor;
    int superscript = 0; // 1 raised, -1 lowered; further levels beyond
    double baselineOffset = 0; // points, upwards
    double kern = 0; // points between characters
    QString link; // a URL, as the text wrote it; empty for none
    std::shared_ptr<const ParagraphStyle> paragraphStyle;
    std::shared_ptr<TextAttachment> attachment;

    // Paragraph styles compare by value, attachments by identity.
    friend bool operator==(const TextAttributes& left, const TextAttributes& right);
};

} // namespace platform
