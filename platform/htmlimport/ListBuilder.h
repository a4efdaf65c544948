// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/BlockStyle.h"
#include "platform/htmlimport/TextFlow.h"

#include <vector>

namespace platform::html {

// Keeps the open lists, numbers their items and makes their markers.
class ListBuilder {
public:
    // Gives the block in which the list's items lie.
    [[nodiscard]] BlockStylePointer enterList(const xmlNode* element, Tag tag,
                                              const StyleDeclarations& declared,
                                              const BlockStylePointer& block);
    void leaveList() { m_lists.pop_back(); }

    struct Item {
        TextFlow::Prefix prefix;
        BlockStylePointer block;
    };
    // An item that stands in no list starts one of its own, with bullets, which its neighbours
    // share.
    [[nodiscard]] Item enterItem(const xmlNode* element, const StyleDeclarations& declared,
                                 const BlockStylePointer& block, const TextStylePointer& text);

    // A cell's lists are its own.
    void enterCell() { m_lists.push_back({}); }
    void leaveCell() { m_lists.pop_back(); }

private:
    struct Level {
        std::shared_ptr<const TextList>
            list; // null for a checklist, and for the boundary of a cell
        bool isChecklist = false;
        int nextNumber = 1;
        int step = 1;
        // What the item before was given, for items that differ in nothing but their text.
        BlockStylePointer outerBlock;
        BlockStylePointer itemBlock;
        TextStylePointer itemText;
        TextStylePointer markerStyle;
    };

    [[nodiscard]] BlockStylePointer
    blockWithList(const BlockStylePointer& block,
                  const std::shared_ptr<const TextList>& list) const;
    [[nodiscard]] Item strayItem(const xmlNode* element, const BlockStylePointer& block,
                                 const TextStylePointer& text);
    [[nodiscard]] static Item numberedItem(Level& level, const xmlNode* element,
                                           const StyleDeclarations& declared,
                                           const BlockStylePointer& block);

    std::vector<Level> m_lists;
    const xmlNode* m_strayParent = nullptr;
    std::shared_ptr<const TextList> m_strayList;
};

} // namespace platform::html
