// SPDX-License-Identifier: MIT
#include "platform/webview/PageScanner.h"

#include "platform/webview/CharacterReferences.h"
#include "platform/webview/ContentType.h"
#include "platform/webview/ImageCandidates.h"
#include "platform/webview/MediaQuery.h"
#include "platform/webview/UrlText.h"

#include <QSet>

namespace platform {
namespace {

constexpr qsizetype maximumTitle = 4096;

QSet<QString> words(const QString& text)
{
    const QStringList list = text.toLower().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return {list.cbegin(), list.cend()};
}

bool isShownImageType(const QString& type)
{
    static const QSet<QString> types = {
        QStringLiteral("image/png"),  QStringLiteral("image/jpeg"),    QStringLiteral("image/jpg"),
        QStringLiteral("image/gif"),  QStringLiteral("image/webp"),    QStringLiteral("image/avif"),
        QStringLiteral("image/apng"), QStringLiteral("image/svg+xml"), QStringLiteral("image/bmp"),
        QStringLiteral("image/tiff"), QStringLiteral("image/x-icon"),  QStringLiteral("image/heic")};
    return types.contains(type);
}

// A style attribute has an address in it, plain or in disguise.
bool mayLoad(QByteArrayView style)
{
    if (style.contains('&') || style.contains('\\'))
        return true;
    const QByteArray text = style.contains('(') ? style.toByteArray().toLower() : QByteArray();
    return text.contains("url(") || text.contains("image-set(");
}

// The name without a prefix, so that svg:image is found, too.
QByteArray localName(const QByteArray& name)
{
    return name.mid(name.indexOf(':') + 1);
}

} // namespace

PageScanner::PageScanner(QByteArray markup, MarkupKind kind, QString base, QString mediaStyle)
    : m_markup(std::move(markup))
    , m_base(std::move(base))
    , m_mediaStyle(std::move(mediaStyle))
    , m_tokenizer(m_markup, kind)
{
}

bool PageScanner::advance(qsizetype byteCount)
{
    const qsizetype end = m_tokenizer.position() + byteCount;
    while (m_tokenizer.position() < end) {
        switch (m_tokenizer.next()) {
        case MarkupTokenizer::Token::StartTag:
            startTag();
            break;
        case MarkupTokenizer::Token::EndTag:
            endTag();
            break;
        case MarkupTokenizer::Token::Text:
            text();
            break;
        case MarkupTokenizer::Token::Instruction:
            instruction();
            break;
        case MarkupTokenizer::Token::End:
            endStyle();
            return true;
        }
    }
    return false;
}

QList<PageReference> PageScanner::takeReferences()
{
    return std::exchange(m_found, {});
}

void PageScanner::startTag()
{
    const QByteArray name = localName(m_tokenizer.name());
    if (name == "template") {
        m_templates += m_tokenizer.isSelfClosing() ? 0 : 1;
        return;
    }
    if (m_templates > 0)
        return;
    if (name == "base") {
        if (!m_hasBase && m_tokenizer.hasAttribute("href")) {
            m_hasBase = true;
            const QString base = absoluteAddress(m_tokenizer.attribute("href"), m_base);
            if (isWebAddress(base) || isFileAddress(base))
                m_base = base;
        }
    } else if (name == "link") {
        link();
    } else if (name == "style") {
        endStyle();
        m_inStyle = !m_tokenizer.isSelfClosing();
        const QString type = m_tokenizer.attribute("type").toLower();
        m_styleApplies = (type.isEmpty() || type == QLatin1String("text/css"))
                         && mediaQueryMatches(m_tokenizer.attribute("media"), m_mediaStyle);
        m_styleText.clear();
    } else if (name == "title") {
        m_inTitle = m_title.isEmpty();
    } else if (name == "picture") {
        m_inPicture = true;
        m_pictureChoice.clear();
    } else if (name == "source") {
        source();
    } else if (name == "img") {
        image();
    } else if (name == "video") {
        addAttribute(PageReference::Kind::Image, "poster");
    } else if (name == "input") {
        if (m_tokenizer.attribute("type").compare(QLatin1String("image"), Qt::CaseInsensitive) == 0)
            addAttribute(PageReference::Kind::Image, "src");
    } else if (name == "iframe") {
        frame(FrameElement::Kind::InlineFrame);
    } else if (name == "frame") {
        frame(FrameElement::Kind::Frame);
    } else if (name == "object") {
        object(FrameElement::Kind::Object, "data");
    } else if (name == "embed") {
        object(FrameElement::Kind::Embed, "src");
    } else if (name == "image" || name == "use" || name == "feImage" || name == "feimage") {
        vectorReference();
    }
    if (m_tokenizer.hasAttribute("background"))
        addAttribute(PageReference::Kind::Image, "background");
    const QByteArrayView style = m_tokenizer.rawAttribute("style");
    // Most style attributes load nothing; the scanner is not set up for them.
    if (mayLoad(style)) {
        PageReference reference{PageReference::Kind::StyleAttribute};
        reference.text = resolvedReferences(style).toUtf8();
        addReference(std::move(reference));
    }
}

void PageScanner::endTag()
{
    const QByteArray name = localName(m_tokenizer.name());
    if (name == "template")
        m_templates = qMax(0, m_templates - 1);
    else if (name == "style")
        endStyle();
    else if (name == "picture")
        m_inPicture = false;
    else if (name == "title")
        m_inTitle = false;
}

void PageScanner::text()
{
    if (!m_inStyle && !m_inTitle)
        return;
    const QByteArrayView markup = m_tokenizer.text();
    if (m_inStyle)
        m_styleText +=
            m_tokenizer.isLiteralText() ? markup.toByteArray() : resolvedReferences(markup).toUtf8();
    else if (m_title.size() < maximumTitle)
        m_title += resolvedReferences(markup.first(qMin(markup.size(), maximumTitle)));
}

void PageScanner::endStyle()
{
    if (!std::exchange(m_inStyle, false))
        return;
    PageReference reference{PageReference::Kind::StyleText};
    reference.text = std::exchange(m_styleText, {});
    reference.applies = m_styleApplies;
    addReference(std::move(reference));
}

// <?xml-stylesheet href="…"?>
void PageScanner::instruction()
{
    if (!m_tokenizer.text().startsWith("xml-stylesheet"))
        return;
    const QByteArray element = '<' + m_tokenizer.text().toByteArray() + '>';
    MarkupTokenizer attributes(element, MarkupKind::Xml);
    attributes.next();
    const QString type = attributes.attribute("type").toLower();
    if (!type.isEmpty() && type != QLatin1String("text/css"))
        return;
    PageReference reference{PageReference::Kind::StyleSheet};
    reference.address = absoluteAddress(attributes.attribute("href"), m_base);
    reference.applies = mediaQueryMatches(attributes.attribute("media"), m_mediaStyle);
    if (!reference.address.isEmpty())
        addReference(std::move(reference));
}

void PageScanner::link()
{
    const QString href = m_tokenizer.attribute("href").trimmed();
    if (href.isEmpty())
        return;
    const QSet<QString> relations = words(m_tokenizer.attribute("rel"));
    if (relations.contains(QStringLiteral("stylesheet"))) {
        const QString type = parseContentType(m_tokenizer.attribute("type")).mimeType;
        if ((!type.isEmpty() && type != QLatin1String("text/css")) || m_tokenizer.hasAttribute("disabled"))
            return;
        PageReference reference{PageReference::Kind::StyleSheet};
        reference.address = absoluteAddress(href, m_base);
        reference.charset = m_tokenizer.attribute("charset");
        reference.applies = mediaQueryMatches(m_tokenizer.attribute("media"), m_mediaStyle)
                            && !relations.contains(QStringLiteral("alternate"));
        if (!reference.address.isEmpty())
            addReference(std::move(reference));
        return;
    }
    for (const char* icon : {"icon", "apple-touch-icon", "apple-touch-icon-precomposed", "mask-icon"}) {
        if (relations.contains(QLatin1String(icon))) {
            add(PageReference::Kind::Icon, href);
            return;
        }
    }
}

void PageScanner::image()
{
    QString chosen = std::exchange(m_pictureChoice, {});
    if (chosen.isEmpty()) {
        chosen = chosenImage(m_tokenizer.attribute("srcset"), m_tokenizer.attribute("sizes"),
                             m_tokenizer.attribute("src").trimmed());
    }
    add(PageReference::Kind::Image, chosen);
}

void PageScanner::source()
{
    if (!m_inPicture || !m_pictureChoice.isEmpty())
        return;
    const QString type = parseContentType(m_tokenizer.attribute("type")).mimeType;
    if ((!type.isEmpty() && !isShownImageType(type))
        || !mediaQueryMatches(m_tokenizer.attribute("media"), m_mediaStyle))
        return;
    m_pictureChoice = chosenImage(m_tokenizer.attribute("srcset"), m_tokenizer.attribute("sizes"), QString());
}

FrameElement PageScanner::frameElement(FrameElement::Kind kind) const
{
    FrameElement element{kind, m_tokenizer.attribute("name")};
    if (element.name.isEmpty())
        element.name = m_tokenizer.attribute("id");
    return element;
}

void PageScanner::frame(FrameElement::Kind kind)
{
    PageReference reference{PageReference::Kind::Frame};
    reference.element = frameElement(kind);
    if (kind == FrameElement::Kind::InlineFrame && m_tokenizer.hasAttribute("srcdoc")) {
        reference.address = QStringLiteral("about:srcdoc");
        reference.text = m_tokenizer.attribute("srcdoc").toUtf8();
    } else {
        const QString src = m_tokenizer.attribute("src").trimmed();
        if (!src.isEmpty())
            reference.address = absoluteAddress(src, m_base);
        if (reference.address.startsWith(QLatin1String("javascript:")))
            reference.address.clear();
    }
    addReference(std::move(reference));
}

// What object and embed show without plug-ins: an image in place, a document in a frame.
void PageScanner::object(FrameElement::Kind kind, const char* addressAttribute)
{
    const QString address = absoluteAddress(m_tokenizer.attribute(addressAttribute), m_base);
    if (address.isEmpty() || m_tokenizer.attribute(addressAttribute).trimmed().isEmpty())
        return;
    QString type = parseContentType(m_tokenizer.attribute("type")).mimeType;
    if (type.isEmpty())
        type = isDataAddress(address)
                   ? parseContentType(address.mid(5, 100).section(QLatin1Char(','), 0, 0)).mimeType
                   : mimeTypeForPath(address.section(QLatin1Char('?'), 0, 0));
    if (isImageType(type) && type != QLatin1String("image/svg+xml")) {
        add(PageReference::Kind::Image, address);
    } else if (type.isEmpty() || isHtmlType(type) || isXmlType(type) || type == QLatin1String("text/plain")) {
        PageReference reference{PageReference::Kind::Frame};
        reference.element = frameElement(kind);
        reference.address = address;
        addReference(std::move(reference));
    }
}

void PageScanner::vectorReference()
{
    QString href = m_tokenizer.attribute("href");
    if (href.isEmpty())
        href = m_tokenizer.attribute("xlink:href");
    // HTML takes an image element outside a drawing for an img.
    if (href.isEmpty() && m_tokenizer.name() == "image")
        href = m_tokenizer.attribute("src");
    if (!href.trimmed().startsWith(QLatin1Char('#')))
        add(PageReference::Kind::Image, href);
}

void PageScanner::addAttribute(PageReference::Kind kind, const char* attribute)
{
    add(kind, m_tokenizer.attribute(attribute));
}

void PageScanner::add(PageReference::Kind kind, const QString& reference)
{
    // An image that carries its own data is not loaded.
    if (reference.trimmed().isEmpty() || isDataAddress(QStringView(reference).trimmed()))
        return;
    PageReference found{kind};
    found.address = absoluteAddress(reference, m_base);
    if (isWebAddress(found.address) || isFileAddress(found.address))
        addReference(std::move(found));
}

void PageScanner::addReference(PageReference reference)
{
    reference.base = m_base;
    m_found += std::move(reference);
}

} // namespace platform
