// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/HtmlWalker.h"

namespace platform::html {

namespace {

const Color ruleColor = Color::fromRgb8(191, 191, 191);
constexpr qsizetype ruleLength = 30;
constexpr double largestImage = 100000;

QString toString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string_view valueOr(const xmlNode* element, const char* name, std::string_view otherwise = {})
{
    return css::trimmed(attribute(element, name).value_or(otherwise));
}

const xmlChar* xmlText(const char* text)
{
    return reinterpret_cast<const xmlChar*>(text);
}

// Sizes that depend on what is not known here (a percentage of the window) are none.
double imageLength(const std::optional<css::Length>& length, const TextStyle& text,
                   const FontContext& fonts)
{
    return std::min(distance(length, text, fonts), largestImage);
}

bool isInvisiblySmall(const StyleDeclarations& declared)
{
    const auto isTiny = [](const std::optional<css::Length>& length) {
        return length && length->unit == css::Length::Unit::Points && length->value <= 1;
    };
    return isTiny(declared.width) && isTiny(declared.height);
}

// What a video or an object shows: its own reference, or that of its first source.
std::string_view sourceOf(const xmlNode* element, Tag tag)
{
    const std::string_view own = valueOr(element, tag == Tag::Object ? "data" : "src");
    if (!own.empty())
        return own;
    for (const xmlNode* child = element->children; child; child = child->next) {
        if (child->type == XML_ELEMENT_NODE && tagOf(child) == Tag::Source) {
            const std::string_view source = valueOr(child, "src");
            if (!source.empty())
                return source;
        }
    }
    return {};
}

} // namespace

HtmlWalker::Replacement HtmlWalker::addReplaced(xmlNode* element, Tag tag,
                                                const StyleDeclarations& declared)
{
    const TextStylePointer text = m_frames.back().text;
    switch (tag) {
    case Tag::Br:
        m_flow.breakLine(text);
        return Replacement::ShownBefore;
    case Tag::Hr:
        addRule(text);
        return Replacement::ShownBefore;
    case Tag::Img:
        addImage(element, declared, text);
        return Replacement::ShownBefore;
    case Tag::Input:
        addInput(element, text);
        return Replacement::ShownBefore;
    case Tag::Svg:
        addDrawing(element, declared, text);
        return Replacement::Shown;
    case Tag::Iframe:
    case Tag::Frame:
    case Tag::Embed:
    case Tag::Object:
    case Tag::Video:
    case Tag::Audio:
        return addEmbedded(element, tag, declared, text) ? Replacement::Shown : Replacement::None;
    default:
        return Replacement::None;
    }
}

void HtmlWalker::addAttachment(const std::shared_ptr<FileWrapper>& file,
                               const StyleDeclarations& declared, const TextStylePointer& text)
{
    const auto attachment = std::make_shared<TextAttachment>(file);
    attachment->setSize({imageLength(declared.width, *text, m_fonts),
                         imageLength(declared.height, *text, m_fonts)});
    m_flow.insertAttachment(attachment, text);
}

void HtmlWalker::addLink(std::string_view reference, const QString& shown,
                         const TextStylePointer& text)
{
    QString url = toString(reference);
    if (url.startsWith(QLatin1String("//")))
        url.prepend(QLatin1String("https:"));
    TextStyle style = *text;
    // A link around the element leads where the page meant to lead.
    if (style.attributes.link.isEmpty())
        style.attributes.link = url;
    m_flow.insert(shown.isEmpty() ? url : shown,
                  std::make_shared<const TextStyle>(std::move(style)));
}

void HtmlWalker::addImage(const xmlNode* element, const StyleDeclarations& declared,
                          const TextStylePointer& text)
{
    const std::string_view source = attribute(element, "src").value_or("");
    const QString alternative = toString(valueOr(element, "alt")).simplified();
    if (auto file = m_images.load(source)) {
        addAttachment(file, declared, text);
    } else if (ImageLoader::isRemote(source)) {
        // Counters of visits are pictures of one pixel; there is nothing to see of them.
        if (!isInvisiblySmall(declared))
            addLink(css::trimmed(source), alternative, text);
    } else if (!alternative.isEmpty()) {
        m_flow.insert(alternative, text);
    } else if (const QString name = ImageLoader::displayName(source); !name.isEmpty()) {
        m_flow.insert(u'[' + name + u']', text);
    }
}

bool HtmlWalker::addEmbedded(const xmlNode* element, Tag tag, const StyleDeclarations& declared,
                             const TextStylePointer& text)
{
    const std::string_view source = sourceOf(element, tag);
    if (source.empty())
        return false;
    const bool isPage = tag == Tag::Iframe || tag == Tag::Frame;
    const auto file = isPage ? nullptr : m_images.load(source);
    if (file)
        addAttachment(file, declared, text);
    else if (source.substr(0, 5) != "data:")
        addLink(source, toString(valueOr(element, "title")).simplified(), text);
    else
        return false;
    return true;
}

// A drawing in the page itself becomes a file of its own.
void HtmlWalker::addDrawing(xmlNode* element, const StyleDeclarations& declared,
                            const TextStylePointer& text)
{
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                      xmlBufferFree);
    if (!buffer || !element->children)
        return;
    // The parser of HTML keeps no name spaces, without which no viewer knows the drawing for one.
    if (!element->ns && !attribute(element, "xmlns"))
        xmlNewProp(element, xmlText("xmlns"), xmlText("http://www.w3.org/2000/svg"));
    if (xmlNodeDump(buffer.get(), element->doc, element, 0, 0) < 0)
        return;
    const QByteArray bytes(reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                           xmlBufferLength(buffer.get()));
    addAttachment(FileWrapper::regularFile(bytes, QStringLiteral("image.svg")), declared, text);
}

void HtmlWalker::addInput(const xmlNode* element, const TextStylePointer& text)
{
    const std::string_view type = valueOr(element, "type", "text");
    const bool isChecked = attribute(element, "checked").has_value();
    if (css::equalsFolded(type, "checkbox")) {
        m_flow.insert(isChecked ? u"\u2611\uFE0E " : u"\u2610 ", text);
    } else if (css::equalsFolded(type, "radio")) {
        m_flow.insert(isChecked ? u"\u25C9 " : u"\u25CB ", text);
    } else if (css::equalsFolded(type, "image")) {
        m_flow.insert(toString(valueOr(element, "alt")), text);
    } else if (!css::equalsFolded(type, "hidden") && !css::equalsFolded(type, "password") &&
               !css::equalsFolded(type, "file")) {
        m_flow.insert(toString(valueOr(element, "value")), text);
    }
}

// A rule is drawn with characters, which every reader of rich text shows.
void HtmlWalker::addRule(const TextStylePointer& text)
{
    TextStyle style;
    style.attributes = plainAttributes(*text);
    style.attributes.foregroundColor = ruleColor;
    style.hidden = text->hidden;
    const BlockStylePointer& block = m_frames.back().block;
    m_flow.enterBlock(block, {}, TextFlow::Boundary::Hard);
    m_flow.insert(QString(ruleLength, QChar(u'\x2500')),
                  std::make_shared<const TextStyle>(std::move(style)));
    m_flow.leaveBlock(block, 0, TextFlow::Boundary::Hard);
}

} // namespace platform::html
