// SPDX-License-Identifier: MIT
#include "platform/webview/StyleScanner.h"

#include "platform/webview/MediaQuery.h"
#include "platform/webview/UrlText.h"

namespace platform {
namespace {

// A declaration with more is no font's.
constexpr qsizetype maximumFontSources = 100;

// A browser takes the first source of a font that it can read.
bool isUsableFont(const QString& address, const QString& format)
{
    if (!format.isEmpty()) {
        return format.startsWith(QLatin1String("woff")) || format.startsWith(QLatin1String("truetype"))
               || format.startsWith(QLatin1String("opentype")) || format == QLatin1String("collection");
    }
    const QString path = address.left(address.indexOf(QLatin1Char('?'))).toLower();
    return !path.endsWith(QLatin1String(".eot")) && !path.endsWith(QLatin1String(".svg"));
}

} // namespace

StyleScanner::StyleScanner(QByteArray text, QString base, QString mediaStyle, Form form, bool applies)
    : m_bytes(std::move(text))
    , m_reader(m_bytes)
    , m_base(std::move(base))
    , m_mediaStyle(std::move(mediaStyle))
    , m_applies(applies)
    , m_importsAllowed(form == Form::Sheet)
{
}

bool StyleScanner::advance(qsizetype byteCount)
{
    const qsizetype start = m_reader.position();
    while (!m_reader.atEnd() && m_reader.position() - start < byteCount) {
        // Nothing but imports counts in a sheet that does not apply, and they stand first.
        if (!m_applies && !m_importsAllowed)
            m_reader.skipAll();
        else
            readToken();
    }
    if (!m_reader.atEnd())
        return false;
    endDeclaration();
    while (m_fontDepth >= 0)
        endBlock();
    m_reader = StyleReader({});
    m_bytes.clear();
    return true;
}

QList<StyleReference> StyleScanner::takeReferences()
{
    return std::exchange(m_found, {});
}

void StyleScanner::readToken()
{
    const char byte = m_reader.peek();
    if (m_reader.atComment()) {
        m_reader.skipSpaceAndComments();
        return;
    }
    if (m_reader.atName()) {
        readIdentifier();
        return;
    }
    if (byte == '"' || byte == '\'') {
        const QByteArray text = m_reader.readString();
        if (m_imageSet >= 0)
            add(StyleReference::Kind::Image, text);
        m_atDeclarationStart = false;
        return;
    }
    m_reader.skip();
    switch (byte) {
    case '(':
        ++m_parentheses;
        break;
    case ')':
        m_parentheses = qMax(0, m_parentheses - 1);
        if (m_parentheses <= m_imageSet)
            m_imageSet = -1;
        break;
    case '{':
        beginBlock();
        break;
    case '}':
        endDeclaration();
        endBlock();
        break;
    case ';':
        endDeclaration();
        break;
    case '@':
        readAtRule();
        break;
    case '<':
    case '>':
    case ' ':
    case '\t':
    case '\n':
    case '\f':
    case '\r':
        // Space, and the marks of an HTML comment around a style element's text, mean nothing.
        break;
    default:
        m_atDeclarationStart = false;
    }
}

void StyleScanner::readIdentifier()
{
    const QByteArray name = m_reader.readName().toLower();
    if (m_reader.peek() == '(') {
        if (name == "url" || name == "format" || name == "type") {
            takeArgument(name, m_reader.readArgument());
        } else {
            if (name.endsWith("image-set") && m_imageSet < 0)
                m_imageSet = m_parentheses;
            ++m_parentheses;
            m_reader.skip();
        }
    } else if (m_atDeclarationStart) {
        m_property = name;
    }
    m_atDeclarationStart = false;
    // A rule has begun, unless this is the "--" of "-->".
    m_importsAllowed = m_importsAllowed && name == "--";
}

// The argument of url(), format() or type(). The latter's are no addresses though they may be strings.
void StyleScanner::takeArgument(const QByteArray& function, const QByteArray& argument)
{
    if (function == "format" && m_fontDepth >= 0 && !m_fontSources.isEmpty())
        m_fontSources.last().format = QString::fromUtf8(argument).toLower();
    if (function != "url")
        return;
    if (m_fontDepth < 0) {
        if (m_property != "behavior" && m_property != "-moz-binding")
            add(StyleReference::Kind::Image, argument);
    } else if (m_property == "src" && m_fontSources.size() < maximumFontSources) {
        m_fontSources += FontSource{QString::fromUtf8(argument), {}};
    }
}

void StyleScanner::readAtRule()
{
    const QByteArray name = m_reader.readName().toLower();
    if (name == "import") {
        readImport();
        return;
    }
    const QByteArray prelude = m_reader.readPrelude();
    const bool isBlock = m_reader.peek() == '{';
    m_atDeclarationStart = !isBlock;
    m_importsAllowed = m_importsAllowed && !isBlock && (name == "charset" || name == "layer");
    if (!isBlock)
        return;
    bool holds = true;
    if (name == "media")
        holds = mediaQueryMatches(QString::fromUtf8(prelude), m_mediaStyle);
    else if (name == "supports")
        holds = !prelude.trimmed().toLower().startsWith("not");
    else if (name == "page")
        holds = m_mediaStyle == QLatin1String("print");
    if (!holds && m_inactiveDepth < 0)
        m_inactiveDepth = m_depth;
    if (name == "font-face" && m_fontDepth < 0)
        m_fontDepth = m_depth;
}

void StyleScanner::readImport()
{
    m_reader.skipSpaceAndComments();
    QByteArray reference;
    if (m_reader.peek() == '"' || m_reader.peek() == '\'')
        reference = m_reader.readString();
    else if (m_reader.readName().toLower() == "url" && m_reader.peek() == '(')
        reference = m_reader.readArgument();
    QString media = QString::fromUtf8(m_reader.readPrelude()).trimmed();
    // A layer and a supports condition may stand before the media.
    for (const char* word : {"layer", "supports"}) {
        if (!media.startsWith(QLatin1String(word), Qt::CaseInsensitive))
            continue;
        qsizetype end = qsizetype(qstrlen(word));
        int depth = 0;
        while (end < media.size() && (depth > 0 || media[end] == QLatin1Char('('))) {
            depth += media[end] == QLatin1Char('(') ? 1 : media[end] == QLatin1Char(')') ? -1 : 0;
            ++end;
            if (depth == 0)
                break;
        }
        media = media.mid(end).trimmed();
    }
    if (m_importsAllowed && m_depth == 0)
        add(StyleReference::Kind::Sheet, reference, m_applies && mediaQueryMatches(media, m_mediaStyle));
    m_atDeclarationStart = true;
}

void StyleScanner::beginBlock()
{
    ++m_depth;
    m_importsAllowed = false;
    m_parentheses = 0;
    m_imageSet = -1;
    m_property.clear();
    m_atDeclarationStart = true;
}

void StyleScanner::endBlock()
{
    m_depth = qMax(0, m_depth - 1);
    if (m_depth <= m_fontDepth) {
        if (!m_font.isEmpty())
            add(StyleReference::Kind::Font, m_font.toUtf8());
        m_font.clear();
        m_fontDepth = -1;
    }
    if (m_depth <= m_inactiveDepth)
        m_inactiveDepth = -1;
}

void StyleScanner::endDeclaration()
{
    // Of several src declarations the last one that can be used counts.
    for (const FontSource& source : std::exchange(m_fontSources, {})) {
        if (isUsableFont(source.address, source.format)) {
            m_font = source.address;
            break;
        }
    }
    m_property.clear();
    m_atDeclarationStart = true;
    m_parentheses = 0;
    m_imageSet = -1;
}

void StyleScanner::add(StyleReference::Kind kind, const QByteArray& reference, bool applies)
{
    if (kind != StyleReference::Kind::Sheet && !isActive())
        return;
    // A fragment alone means a part of this very document.
    if (reference.isEmpty() || reference.startsWith('#'))
        return;
    // What carries its data itself is not loaded, and may be long.
    if (kind != StyleReference::Kind::Sheet && qstrnicmp(reference.constData(), "data:", 5) == 0)
        return;
    const QString text = QString::fromUtf8(reference);
    const QString address = absoluteAddress(text, m_base);
    if (!address.isEmpty())
        m_found += StyleReference{kind, address, applies, text};
}

} // namespace platform
