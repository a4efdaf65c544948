// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/ElementStyles.h"
#include "platform/htmlimport/HtmlImport.h"
#include "platform/htmlimport/ImageLoader.h"
#include "platform/htmlimport/ListBuilder.h"
#include "platform/htmlimport/TableBuilder.h"
#include "platform/htmlimport/TextFlow.h"

#include <libxml/tree.h>

#include <string>
#include <vector>

namespace platform::html {

// Goes through a page's tree, depth first and without recursion, and tells the flow what it meets.
class HtmlWalker {
public:
    HtmlWalker(const HtmlImportOptions& options, const FontContext& fonts);

    // The tree may be changed: parts that are shown elsewhere than they stand are moved there.
    [[nodiscard]] AttributedString walk(xmlNode* root);

private:
    enum Role : unsigned {
        IsBlock = 1U << 0,
        IsSoft = 1U << 1,
        IsList = 1U << 2,
        IsItem = 1U << 3,
        IsTable = 1U << 4,
        IsRow = 1U << 5,
        IsCell = 1U << 6,
        IsQuote = 1U << 7,
        IsOverride = 1U << 8 // of the direction (bdo)
    };
    struct Frame {
        TextStylePointer text;
        BlockStylePointer block;
        double bottomMargin = 0;
        qsizetype paragraphsBefore = 0;
        unsigned roles = 0;
        // Rows and cells belong to the innermost table only where no cell stands between.
        bool expectsCells = false;
    };

    // Each says whether the children are to be walked; if so, a frame was pushed.
    [[nodiscard]] bool enter(xmlNode* element);
    void enterStyled(xmlNode* element, Tag tag, const ElementStyles::Result& style);
    void enterUnstyled(Tag tag);
    void leave();
    void addTextNode(const xmlNode* node);

    // Elements that are content themselves. Shown: the element stands for its children.
    // ShownBefore: text that a careless page has put into it follows.
    enum class Replacement { None, Shown, ShownBefore };
    [[nodiscard]] Replacement addReplaced(xmlNode* element, Tag tag,
                                          const StyleDeclarations& declared);
    void addImage(const xmlNode* element, const StyleDeclarations& declared,
                  const TextStylePointer& text);
    [[nodiscard]] bool addEmbedded(const xmlNode* element, Tag tag,
                                   const StyleDeclarations& declared, const TextStylePointer& text);
    void addDrawing(xmlNode* element, const StyleDeclarations& declared,
                    const TextStylePointer& text);
    void addInput(const xmlNode* element, const TextStylePointer& text);
    void addRule(const TextStylePointer& text);
    void addLink(std::string_view reference, const QString& shown, const TextStylePointer& text);
    void addAttachment(const std::shared_ptr<FileWrapper>& file, const StyleDeclarations& declared,
                       const TextStylePointer& text);

    [[nodiscard]] TextStylePointer textStyleFor(const xmlNode* element, Tag tag,
                                                const StyleDeclarations& declared,
                                                bool isBlock) const;
    void enterInline(Frame& frame, const xmlNode* element, Tag tag,
                     const StyleDeclarations& declared);
    void enterBlock(Frame& frame, xmlNode* element, Tag tag, const ElementStyles::Result& style);
    // True when the element is a part of a table and has been entered as one.
    [[nodiscard]] bool enterTablePart(Frame& frame, xmlNode* element, Tag tag,
                                      const StyleDeclarations& declared);
    void enterItem(Frame& frame, const xmlNode* element, const StyleDeclarations& declared);
    void leaveCell(const Frame& cell);
    // A marker that still waits for its item's text must not stray into a list or table inside.
    void settlePendingPrefix(Tag tag, const TextStylePointer& text);

    const FontContext& m_fonts;
    ElementStyles m_styles;
    ImageLoader m_images;
    ListBuilder m_lists;
    TableBuilder m_tables;
    TextStylePointer m_rootText;
    TextFlow m_flow;
    std::vector<Frame> m_frames;
    std::string m_spanOpening;
    std::string m_spanClosing;
    int m_quoteDepth = 0;
};

} // namespace platform::html
