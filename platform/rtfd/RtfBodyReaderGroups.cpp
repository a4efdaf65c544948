// SPDX-License-Identifier: MIT
//
// How an RtfBodyReader enters and leaves groups, and which of them it leaves to readers of their
// own.
#include "platform/rtfd/RtfBodyReader.h"
#include "platform/rtfd/RtfGroupTokens.h"

namespace platform {

namespace {

// Groups beyond this share the formats of the last one.
constexpr std::size_t maximumDepth = 2000;

} // namespace

void RtfBodyReader::openGroup()
{
    flushBytes();
    m_toSkip = 0;
    if (m_states.size() > maximumDepth) {
        ++m_flattenedGroups;
        return;
    }
    m_states.push_back(m_states.back());
    state().isMarker = false;
}

void RtfBodyReader::closeGroup()
{
    flushBytes();
    m_toSkip = 0;
    if (m_flattenedGroups > 0) {
        --m_flattenedGroups;
        return;
    }
    // The document's own group: its last paragraph still has the formats that end with it.
    if (m_states.size() <= 2) {
        m_isOver = true;
        return;
    }
    if (state().isMarker && !m_facts.isCocoa)
        m_builder.normaliseMarker(std::min(state().markerStart, m_builder.paragraphLength()));
    if (m_placeholderDepth == m_states.size())
        m_placeholderDepth = 0;
    m_states.pop_back();
}

void RtfBodyReader::leaveReadGroup()
{
    closeGroup();
}

// A group that readers may ignore: it is read when its word is known.
void RtfBodyReader::readStarredGroup()
{
    const RtfToken token = m_tokens.next();
    if (token.kind != RtfToken::Kind::Word) {
        readToken(token);
        return;
    }
    const RtfWord word = rtfWordNamed(token.bytes);
    switch (word) {
    case RtfWord::Background:
        readRtfBackground(m_tokens, m_attributes);
        leaveReadGroup();
        return;
    case RtfWord::Nesttableprops:
        flushBytes();
        state().definesInnerRow = true;
        return;
    case RtfWord::Shppict:
        return;
    case RtfWord::Pn:
        readOlderList();
        leaveReadGroup();
        return;
    default:
        break;
    }
    if (!readGroupWord(word)) {
        skipRtfGroup(m_tokens);
        leaveReadGroup();
    }
}

// The last group's word, when it begins a group with a reader of its own.
bool RtfBodyReader::readGroupWord(RtfWord word)
{
    switch (word) {
    case RtfWord::Fonttbl:
        readRtfFontTable(m_tokens, m_decoders, m_facts, m_fonts);
        m_codePageFont = -1;
        break;
    case RtfWord::Colortbl:
        m_colors.readTable(m_tokens);
        break;
    case RtfWord::Expandedcolortbl:
        m_colors.readExpandedTable(m_tokens);
        break;
    case RtfWord::Listtable:
        m_styledParagraph = nullptr;
        m_lists.readTable(m_tokens, m_decoders, m_facts);
        break;
    case RtfWord::Listoverridetable:
        m_styledParagraph = nullptr;
        m_lists.readOverrides(m_tokens);
        break;
    case RtfWord::Info:
        readRtfInformation(m_tokens, m_decoders, m_facts, m_attributes);
        break;
    case RtfWord::Fldinst:
        readField();
        return true;
    case RtfWord::NeXTGraphic:
        readAttachment();
        return true;
    case RtfWord::Pict:
        readPicture();
        return true;
    case RtfWord::Skipped:
    case RtfWord::Background:
        skipRtfGroup(m_tokens);
        break;
    default:
        return false;
    }
    leaveReadGroup();
    return true;
}

void RtfBodyReader::readField()
{
    const QString instruction = readRtfGroupText(m_tokens, m_decoders, m_facts.codePage);
    leaveReadGroup();
    state().link = rtfLinkOfInstruction(instruction);
}

} // namespace platform
