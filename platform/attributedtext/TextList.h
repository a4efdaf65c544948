// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// One level of a list. Paragraphs of the same list share one object, which is its identity.
struct TextList {
    // The marker's format with its kind in braces: "{disc}", "{circle}", "{square}", "{hyphen}",
    // "{check}", "{decimal}.", "{lower-alpha}.", "{upper-alpha}.", "{lower-roman}.",
    // "{upper-roman}.", or "" for a list whose items show none.
    QString markerFormat;
    int startingItemNumber = 1;

    // The marker of an item, such as U+2022, "3." or "iv.". number: the one that the item shows, so
    // the first item's is startingItemNumber. Numbers that letters or Roman digits cannot write
    // (below 1, Roman above 3999) are written in decimal; a kind that is not known writes nothing.
    [[nodiscard]] QString markerForItemNumber(int number) const;
};

} // namespace platform
