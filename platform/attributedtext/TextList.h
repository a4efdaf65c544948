// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// One level of a list. Paragraphs of the same list share one object, which is its identity.
struct TextList {
    // The marker's format with its kind in braces: "{disc}", "{circle}", "{square}", "{hyphen}",
    // "{check}", "{decimal}.", "{lower-alpha}.", "{upper-alpha}.", "{lower-roman}.", "{upper-roman}.",
    // or "" for a list whose items show none.
    QString markerFormat;
    int startingItemNumber = 1;

    // The marker of an item, such as U+2022, "3." or "iv.". number: the item's own, from 1.
    [[nodiscard]] QString markerForItemNumber(int number) const;
};

} // namespace platform
