// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/HtmlTag.h"
#include "platform/htmlimport/StyleDeclarations.h"

namespace platform::html {

// What browsers' own style sheets say about an element. Two liberties: lists have no margins above
// and below (notes show none), and their indents come from the list level alone.
[[nodiscard]] const StyleDeclarations& elementDefaults(Tag tag);

// 1 to 6 for the headings, 0 for all else.
[[nodiscard]] int headerLevelOf(Tag tag);

// Elements whose content is never text of the page.
[[nodiscard]] bool isNeverShown(Tag tag);

} // namespace platform::html
