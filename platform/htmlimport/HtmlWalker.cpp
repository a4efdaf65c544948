// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlWalker.h"

#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/ElementDefaults.h"

namespace platform::html {

namespace {

// Elements deeper than this still bound paragraphs, but their styles say no more.
constexpr std::size_t deepestStyledFrame = 200;

bool isPage(Tag tag)
{
    return tag == Tag::Html || tag == Tag::Body || tag == Tag::EnNote;
}

bool isWhite(const css::ColorValue& color)
{
    return color.color == Color{1, 1, 1, 1};
}

// Whether a block's background is painted behind its text, as a highlight is. The colour of a page
// is not the text's, and that of a part of it is a box's.
bool paintsText(Tag tag, const StyleDeclarations& declared)
{
    return declared.background && !isPage(tag) && !isTablePart(tag) && !isBox(declared) &&
           !isWhite(*declared.background);
}

QString linkFrom(const xmlNode* element)
{
    const auto reference = attribute(element, "href");
    const std::string_view text = css::trimmed(reference.value_or(""));
    // Fragments lead to places that are gone with the page, scripts nowhere.
    constexpr std::string_view script = "javascript:";
    if (text.empty() || text.front() == '#' ||
        css::equalsFolded(text.substr(0, script.size()), script))
        return {};
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QChar quotationMark(int depth, bool isOpening)
{
    if (depth % 2 == 0)
        return isOpening ? QChar(u'\x201C') : QChar(u'\x201D');
    return isOpening ? QChar(u'\x2018') : QChar(u'\x2019');
}

} // namespace

HtmlWalker::HtmlWalker(const HtmlImportOptions& options, const FontContext& fonts)
    : m_fonts(fonts)
    , m_images(options.baseDirectory)
    , m_tables(fonts)
    , m_rootText(rootTextStyle(fonts))
    , m_flow(m_rootText)
{
    if (options.preservedSpanDelimiters) {
        m_spanOpening = options.preservedSpanDelimiters->opening.toStdString();
        m_spanClosing = options.preservedSpanDelimiters->closing.toStdString();
    }
}

AttributedString HtmlWalker::walk(xmlNode* root)
{
    m_frames.push_back({m_rootText, std::make_shared<const BlockStyle>()});
    xmlNode* const end = root ? root->parent : nullptr;
    for (xmlNode* node = root; node && node != end;) {
        const bool isEntered = node->type == XML_ELEMENT_NODE && enter(node);
        if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
            addTextNode(node);
        if (isEntered && node->children) {
            node = node->children;
            continue;
        }
        if (isEntered)
            leave();
        while (node != end && !node->next) {
            node = node->parent;
            if (node != end)
                leave();
        }
        if (node != end)
            node = node->next;
    }
    return m_flow.finish();
}

bool HtmlWalker::enter(xmlNode* element)
{
    const Tag tag = tagOf(element);
    if (isNeverShown(tag))
        return false;
    const bool isTooDeep = m_frames.size() > deepestStyledFrame;
    const ElementStyles::Result style =
        isTooDeep ? ElementStyles::Result{elementDefaults(tag)} : m_styles.of(element, tag);
    if (style.declared.display == Display::None)
        return false;
    if (tag == Tag::Col || tag == Tag::Colgroup) {
        if (m_frames.back().expectsCells)
            m_tables.addColumns(element, style.declared, *m_frames.back().text);
        if (!element->children)
            return false;
        enterUnstyled(Tag::Unknown);
        return true;
    }
    const Replacement replacement = addReplaced(element, tag, style.declared);
    if (replacement == Replacement::Shown ||
        (replacement == Replacement::ShownBefore && !element->children))
        return false;
    if (replacement == Replacement::ShownBefore)
        enterUnstyled(Tag::Unknown);
    else if (isTooDeep)
        enterUnstyled(tag);
    else
        enterStyled(element, tag, style);
    return true;
}

void HtmlWalker::enterUnstyled(Tag tag)
{
    Frame frame = m_frames.back();
    frame.roles = 0;
    frame.bottomMargin = 0;
    if (elementDefaults(tag).display == Display::Block) {
        frame.roles = IsBlock;
        m_flow.enterBlock(frame.block, {}, TextFlow::Boundary::Hard);
    }
    m_frames.push_back(std::move(frame));
}

void HtmlWalker::enterStyled(xmlNode* element, Tag tag, const ElementStyles::Result& style)
{
    const Frame& parent = m_frames.back();
    const bool isBlock =
        style.declared.display.value_or(Display::Inline) == Display::Block || isTablePart(tag);
    Frame frame{parent.text, parent.block};
    frame.expectsCells = parent.expectsCells;
    const bool mayLink = tag == Tag::A && element->properties;
    if (style.hasOwn || mayLink || !leavesTextAlone(style.declared) || tag == Tag::Td)
        frame.text = textStyleFor(element, tag, style.declared, isBlock);
    if (isBlock)
        enterBlock(frame, element, tag, style);
    else
        enterInline(frame, element, tag, style.declared);
    m_frames.push_back(std::move(frame));
}

TextStylePointer HtmlWalker::textStyleFor(const xmlNode* element, Tag tag,
                                          const StyleDeclarations& declared, bool isBlock) const
{
    const TextStylePointer& parent = m_frames.back().text;
    const QString link = tag == Tag::A ? linkFrom(element) : QString();
    if (leavesTextAlone(declared) && link.isEmpty() && !declared.isCodeBlock &&
        !(isCell(tag) && parent->attributes.backgroundColor))
        return parent;
    TextStyle style = derivedTextStyle(*parent, declared, m_fonts);
    if (isBlock && !paintsText(tag, declared))
        style.attributes.backgroundColor = parent->attributes.backgroundColor;
    if (isCell(tag) || (isBlock && isBox(declared)))
        style.attributes.backgroundColor.reset();
    if (declared.isCodeBlock) {
        Font& font = *style.attributes.font;
        if (!declared.family || declared.family->family.isEmpty()) {
            font.family = QStringLiteral("Menlo");
            font.monospaced = true;
        }
        if (!declared.whiteSpace)
            style.whiteSpace = WhiteSpace::Code;
    }
    if (!link.isEmpty())
        style.attributes.link = link;
    return std::make_shared<const TextStyle>(std::move(style));
}

void HtmlWalker::enterInline(Frame& frame, const xmlNode* element, Tag tag,
                             const StyleDeclarations& declared)
{
    if (tag == Tag::Q) {
        frame.roles = IsQuote;
        m_flow.insert(QString(quotationMark(m_quoteDepth++, true)), frame.text);
    } else if (tag == Tag::Bdo && attribute(element, "dir")) {
        frame.roles = IsOverride;
        const bool isRightToLeft = declared.direction == WritingDirection::RightToLeft;
        m_flow.insert(QString(QChar(isRightToLeft ? u'\x202E' : u'\x202D')), frame.text);
    }
}

void HtmlWalker::leave()
{
    const Frame frame = std::move(m_frames.back());
    m_frames.pop_back();
    const Frame& parent = m_frames.back();
    if (frame.roles & IsQuote)
        m_flow.insert(QString(quotationMark(--m_quoteDepth, false)), frame.text);
    if (frame.roles & IsOverride)
        m_flow.insert(u"\u202C", frame.text);
    if (!(frame.roles & IsBlock))
        return;
    if ((frame.roles & IsItem) && m_flow.hasPendingPrefix())
        m_flow.addEmptyParagraph(frame.text);
    if (frame.roles & IsCell)
        leaveCell(frame);
    m_flow.leaveBlock(parent.block, frame.bottomMargin,
                      frame.roles & IsSoft ? TextFlow::Boundary::Soft : TextFlow::Boundary::Hard);
    if (frame.roles & IsCell)
        m_flow.forgetMargins();
    if (frame.roles & IsList)
        m_lists.leaveList();
    if (frame.roles & IsRow)
        m_tables.leaveRow();
    if (frame.roles & IsTable)
        m_tables.leaveTable();
}

void HtmlWalker::addTextNode(const xmlNode* node)
{
    if (!node->content)
        return;
    std::string_view text(reinterpret_cast<const char*>(node->content));
    const TextStylePointer& style = m_frames.back().text;
    if (style->whiteSpace == WhiteSpace::Pre && !node->prev && node->parent) {
        // The line end after the start tag belongs to the markup.
        const Tag tag = tagOf(node->parent);
        if (tag == Tag::Pre || tag == Tag::Listing || tag == Tag::Textarea) {
            if (text.starts_with("\r\n"))
                text.remove_prefix(2);
            else if (text.starts_with('\n'))
                text.remove_prefix(1);
        }
    }
    while (!m_spanOpening.empty()) {
        const std::size_t opening = text.find(m_spanOpening);
        if (opening == std::string_view::npos)
            break;
        const std::size_t start = opening + m_spanOpening.size();
        const std::size_t closing = text.find(m_spanClosing, start);
        if (closing == std::string_view::npos)
            break;
        // One blank on each side is the collapsed half of the delimiter's own.
        std::string_view span = text.substr(start, closing - start);
        if (span.starts_with(' '))
            span.remove_prefix(1);
        if (span.ends_with(' '))
            span.remove_suffix(1);
        m_flow.addText(text.substr(0, opening), style);
        m_flow.addVerbatim(m_spanOpening, style);
        m_flow.addVerbatim(span, style);
        m_flow.addVerbatim(m_spanClosing, style);
        text.remove_prefix(closing + m_spanClosing.size());
    }
    m_flow.addText(text, style);
}

} // namespace platform::html
