// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/HtmlTag.h"
#include "platform/htmlimport/StyleDeclarations.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace platform::html {

// The cascade: an element's defaults, over them its presentational attributes, over them its style
// attribute. A coloured block is known for a part of the page here.
class ElementStyles {
public:
    // own: the declarations that the element's attributes make, without the defaults; empty when it
    // has none. The reference holds until the next call.
    struct Result {
        const StyleDeclarations& declared;
        bool hasOwn = false;
        bool hasOwnTopMargin = false;
    };
    [[nodiscard]] Result of(const xmlNode* element, Tag tag);

private:
    // Pages repeat the same few style attributes hundreds of times.
    [[nodiscard]] const StyleDeclarations& parsed(std::string_view style);

    StyleDeclarations m_declared;
    StyleDeclarations m_uncached;
    std::unordered_map<std::string, StyleDeclarations> m_parsed;
    std::string m_key;
};

// What the presentational attribute says about the element.
void applyPresentationalAttribute(std::string_view name, std::string_view value, Tag tag,
                                  StyleDeclarations& style);

} // namespace platform::html
