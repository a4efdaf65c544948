// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextAttributes.h"
#include "platform/htmlimport/StyleDeclarations.h"

#include <memory>

namespace platform::html {

// What elements hand down to the text inside them: the attributes of a run, apart from its
// paragraph's style, and how the text is to be read. Shared by all text of an element and never
// changed.
struct TextStyle {
    TextAttributes attributes; // the font is always there
    TextTransform transform = TextTransform::None;
    WhiteSpace whiteSpace = WhiteSpace::Normal;
    bool hidden = false;

    [[nodiscard]] const Font& font() const { return *attributes.font; }
};
using TextStylePointer = std::shared_ptr<const TextStyle>;

// Fonts that a page's styles refer to.
struct FontContext {
    QString standardFamily;
    bool standardIsMonospaced = false;
    double standardSize = 12; // points; medium
};

[[nodiscard]] TextStylePointer rootTextStyle(const FontContext& fonts);

// The style of an element's text. Whether the background is the text's or the box's is the caller's
// business: it is taken as the text's.
[[nodiscard]] TextStyle derivedTextStyle(const TextStyle& parent, const StyleDeclarations& declared,
                                         const FontContext& fonts);

// True when the declarations would change nothing about the text.
[[nodiscard]] bool leavesTextAlone(const StyleDeclarations& declared);

// The same font and colour without what must not reach a paragraph's end: links, lines,
// attachments.
[[nodiscard]] TextAttributes plainAttributes(const TextStyle& style);

} // namespace platform::html
