// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/XMLNode.h"

#include <QString>

#include <functional>
#include <optional>

// Replaces every tag of one kind in a page's text, left to right, found by its literal opener and
// closer and read as an element of its own. What replaces a tag is never searched again.
struct ENMLTagReplacement {
    QString opener;
    // What ends a tag, searched from behind the opener.
    QString closer;
    // Where the first is not found: what ends it, searched in the whole text as it stands by then,
    // from its beginning. Empty for none.
    QString closerAnywhere;
    // The text of the error for a tag that nothing ends.
    QString invalidTagText;
    // The text for one tag; none, with the error filled, ends the replacing.
    std::function<std::optional<QString>(const platform::XMLElement& tag, platform::Error* error)>
        replacementForTag;

    // None with an error when a tag has no end, is not well-formed, or has no replacement. Throws
    // std::out_of_range for a tag whose end stands before it.
    [[nodiscard]] std::optional<QString> applyTo(const QString& text, platform::Error* error) const;
};
