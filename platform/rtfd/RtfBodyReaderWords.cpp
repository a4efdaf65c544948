// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfBodyReader.h"

#include "platform/rtfd/RtfControlWords.h"

namespace platform {

namespace {

// The character of a word that stands for one; 0 for other words.
char16_t characterOf(RtfWord word)
{
    switch (word) {
    case RtfWord::Line:
        return u'\u2028';
    case RtfWord::Page:
        return u'\f';
    case RtfWord::Tab:
        return u'\t';
    case RtfWord::Emdash:
        return u'\u2014';
    case RtfWord::Endash:
        return u'\u2013';
    case RtfWord::Emspace:
        return u'\u2003';
    case RtfWord::Enspace:
        return u'\u2002';
    case RtfWord::Qmspace:
        return u'\u2005';
    case RtfWord::Bullet:
        return u'\u2022';
    case RtfWord::Lquote:
        return u'\u2018';
    case RtfWord::Rquote:
        return u'\u2019';
    case RtfWord::Ldblquote:
        return u'\u201C';
    case RtfWord::Rdblquote:
        return u'\u201D';
    case RtfWord::Ltrmark:
        return u'\u200E';
    case RtfWord::Rtlmark:
        return u'\u200F';
    case RtfWord::Zwj:
        return u'\u200D';
    case RtfWord::Zwnj:
        return u'\u200C';
    default:
        return u'\0';
    }
}

} // namespace

bool RtfBodyReader::readCharacterWord(RtfWord word)
{
    const QChar character(characterOf(word));
    if (character.isNull())
        return false;
    flushBytes();
    appendText(QStringView(&character, 1));
    return true;
}

void RtfBodyReader::readWord(const RtfToken& token)
{
    const RtfWord word = rtfWordNamed(token.bytes);
    if (word == RtfWord::U) {
        appendUnit(token.number);
        return;
    }
    // A word counts as one substitute.
    if (skipsSubstitute() || word == RtfWord::Unknown)
        return;
    if (readCharacterWord(word) || readStructureWord(word) || readGroupWord(word))
        return;

    flushBytes();
    const RtfReadWord read{word, token.hasNumber, token.number};
    if (word == RtfWord::Plain) {
        state().characters = RtfReadCharacters();
        state().characters.font = m_defaultFont;
        return;
    }
    if (state().characters.apply(read)) {
        m_isBare = false;
        return;
    }
    using Definition = RtfTableReader::Definition;
    const Definition definition = state().definesInnerRow ? Definition::OfInnerRow
                                                          : Definition::OfParagraphsRow;
    if (m_tables.apply(read, state().paragraph->depth(), definition) || readDocumentWord(read))
        return;
    if (!changedParagraph().apply(read))
        return;
    if (word == RtfWord::Pard)
        m_isBare = true;
    else if (word != RtfWord::Intbl && word != RtfWord::Itap)
        m_isBare = false;
}

bool RtfBodyReader::readDocumentWord(const RtfReadWord& word)
{
    const double points = pointsFromTwips(word.number);
    switch (word.word) {
    case RtfWord::Ansi:
        m_facts.codePage = rtfWindowsCodePage;
        return true;
    case RtfWord::Mac:
        m_facts.codePage = rtfMacCodePage;
        m_facts.isMac = true;
        return true;
    case RtfWord::Pc:
        m_facts.codePage = 437;
        return true;
    case RtfWord::Pca:
        m_facts.codePage = 850;
        return true;
    case RtfWord::Ansicpg:
        if (word.number > 0)
            m_facts.codePage = word.number;
        return true;
    case RtfWord::Cocoartf:
        m_facts.isCocoa = word.number > 0;
        return true;
    case RtfWord::Deff:
        m_defaultFont = word.number;
        if (state().characters.font < 0)
            state().characters.font = word.number;
        return true;
    case RtfWord::Uc:
        state().substitutes = std::clamp(word.number, 0, 255);
        return true;
    case RtfWord::Paperw:
        m_attributes.paperWidth = points;
        return true;
    case RtfWord::Paperh:
        m_attributes.paperHeight = points;
        return true;
    case RtfWord::Margl:
        m_attributes.leftMargin = points;
        return true;
    case RtfWord::Margr:
        m_attributes.rightMargin = points;
        return true;
    case RtfWord::Margt:
        m_attributes.topMargin = points;
        return true;
    case RtfWord::Margb:
        m_attributes.bottomMargin = points;
        return true;
    case RtfWord::Vieww:
        m_attributes.viewWidth = points;
        return true;
    case RtfWord::Viewh:
        m_attributes.viewHeight = points;
        return true;
    case RtfWord::Viewkind:
        m_attributes.viewKind = word.number;
        return true;
    case RtfWord::Viewscale:
        m_attributes.viewScale = word.number;
        return true;
    case RtfWord::Deftab:
        m_attributes.defaultTabInterval = points;
        return true;
    case RtfWord::Hyphfactor:
        m_attributes.hyphenationFactor = std::clamp(word.number / 100.0, 0.0, 1.0);
        return true;
    default:
        return false;
    }
}

} // namespace platform
