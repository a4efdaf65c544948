// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"
#include "platform/attributedtext/Font.h"
#include "platform/attributedtext/TextList.h"
#include "platform/rtfd/DocumentAttributes.h"
#include "platform/rtfd/RtfCharsets.h"
#include "platform/rtfd/RtfTokenizer.h"

#include <QHash>
#include <QList>

#include <memory>
#include <optional>
#include <vector>

// The groups of a document's header. Each reader takes the tokens after the group's first word, up
// to and with the brace that ends the group.
namespace platform {

// What the document says of its bytes, and who wrote it.
struct RtfDocumentFacts {
    int codePage = rtfWindowsCodePage;
    bool isMac = false;
    bool isCocoa = false;
};

struct RtfReadFont {
    QString name;
    int charset = -1; // none given
    bool isFixedPitch = false;
    std::optional<Font> face; // made when it is first used

    [[nodiscard]] int codePage(const RtfDocumentFacts& facts) const;
};
using RtfReadFonts = QHash<int, RtfReadFont>;

void readRtfFontTable(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts,
                      RtfReadFonts& fonts);
// The face of a table's font, at no size of its own.
[[nodiscard]] const Font& rtfFace(RtfReadFont& font);

class RtfReadColors {
public:
    void readTable(RtfTokenizer& tokens);
    void readExpandedTable(RtfTokenizer& tokens);
    // None for a number without a colour.
    [[nodiscard]] std::optional<Color> color(int index) const;

private:
    QList<std::optional<Color>> m_colors;
    QList<std::optional<Color>> m_exactColors;
};

class RtfReadLists {
public:
    void readTable(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts);
    void readOverrides(RtfTokenizer& tokens);
    // The lists from the outermost to that of the level; none for a reference that leads nowhere.
    [[nodiscard]] std::vector<std::shared_ptr<const TextList>> chain(int reference,
                                                                     int level) const;

private:
    using Levels = std::vector<std::shared_ptr<const TextList>>;

    void readList(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts);

    QHash<int, Levels> m_levelsById;
    QHash<int, int> m_idByReference;
    QHash<int, std::shared_ptr<const TextList>> m_listByTemplate;
};

void readRtfInformation(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts,
                        DocumentAttributes& attributes);
void readRtfBackground(RtfTokenizer& tokens, DocumentAttributes& attributes);

// The text of a group with everything in it that is not a destination to be ignored.
[[nodiscard]] QString readRtfGroupText(RtfTokenizer& tokens, RtfDecoders& decoders, int codePage);
// The target that a field's instruction names; empty when it is no link.
[[nodiscard]] QString rtfLinkOfInstruction(const QString& instruction);

} // namespace platform
