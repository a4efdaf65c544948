// SPDX-License-Identifier: MIT
#include "platform/webview/MarkupTokenizer.h"

#include "platform/webview/CharacterReferences.h"

namespace platform {
namespace {

// No element that is written by a person or a program has so many; a tag that does must not fill memory.
constexpr qsizetype maximumAttributes = 1000;

bool isSpace(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\f' || byte == '\r';
}

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

// Elements whose content holds no tags, in HTML read without scripts.
bool isRawTextElement(const QByteArray& name)
{
    static const QByteArrayList names = {"script",   "style", "xmp",      "iframe",   "noembed",
                                         "noframes", "title", "textarea", "plaintext"};
    return names.contains(name);
}

bool isReferenceText(const QByteArray& name)
{
    return name == "title" || name == "textarea";
}

} // namespace

MarkupTokenizer::MarkupTokenizer(QByteArrayView markup, MarkupKind kind)
    : m_markup(markup)
    , m_kind(kind)
{
}

MarkupTokenizer::Token MarkupTokenizer::next()
{
    m_literal = false;
    m_text = {};
    if (m_position >= m_markup.size())
        return m_token = Token::End;
    if (!m_rawElement.isEmpty())
        return m_token = readRawText();
    if (at(m_position) == '<' && readMarkup())
        return m_token;
    if (m_position >= m_markup.size())
        return m_token = Token::End;
    return m_token = readText();
}

MarkupTokenizer::Token MarkupTokenizer::readText()
{
    // The first byte may be a "<" that begins nothing.
    const qsizetype start = m_position;
    const qsizetype end = m_markup.indexOf('<', start + 1);
    m_position = end < 0 ? m_markup.size() : end;
    m_text = m_markup.sliced(start, m_position - start);
    return Token::Text;
}

MarkupTokenizer::Token MarkupTokenizer::readRawText()
{
    const qsizetype start = m_position;
    const qsizetype length = m_rawElement.size();
    qsizetype end = m_markup.indexOf("</", start);
    while (end >= 0) {
        const char after = at(end + 2 + length);
        const bool closes = isSpace(after) || after == '/' || after == '>';
        if (closes && qstrnicmp(m_markup.data() + end + 2, length, m_rawElement.constData(), length) == 0)
            break;
        end = m_markup.indexOf("</", end + 2);
    }
    m_literal = !isReferenceText(m_rawElement);
    m_rawElement.clear();
    m_position = end < 0 ? m_markup.size() : end;
    m_text = m_markup.sliced(start, m_position - start);
    return Token::Text;
}

// True when a token was read; what yields none (a comment) is passed over, to the next one.
bool MarkupTokenizer::readMarkup()
{
    while (at(m_position) == '<') {
        const char second = at(m_position + 1);
        if (isLetter(second) || (second == '/' && isLetter(at(m_position + 2))))
            return readTag();
        if (second == '/' && m_position + 2 < m_markup.size()) {
            skipPast(">");
        } else if (second == '!') {
            if (readDeclaration())
                return true;
        } else if (second == '?') {
            const qsizetype start = m_position + 2;
            skipPast(m_kind == MarkupKind::Xml ? QByteArrayView("?>") : QByteArrayView(">"));
            m_text = m_markup.sliced(qMin(start, m_position), qMax(qsizetype(0), m_position - 2 - start));
            m_token = Token::Instruction;
            return true;
        } else {
            return false;
        }
    }
    return false;
}

bool MarkupTokenizer::readDeclaration()
{
    const QByteArrayView rest = m_markup.sliced(m_position);
    if (rest.startsWith("<!--")) {
        m_position += 4;
        if (at(m_position) == '>') {
            m_position += 1;
        } else if (m_markup.sliced(m_position).startsWith("->")) {
            m_position += 2;
        } else {
            skipComment();
        }
        return false;
    }
    if (m_kind == MarkupKind::Xml && rest.startsWith("<![CDATA[")) {
        const qsizetype start = m_position + 9;
        const qsizetype end = m_markup.indexOf("]]>", start);
        m_text = m_markup.sliced(start, (end < 0 ? m_markup.size() : end) - start);
        m_position = end < 0 ? m_markup.size() : end + 3;
        m_literal = true;
        m_token = Token::Text;
        return true;
    }
    const qsizetype end = m_markup.indexOf('>', m_position);
    const qsizetype subset =
        m_kind == MarkupKind::Xml && end > 0 ? m_markup.first(end).indexOf('[', m_position) : -1;
    if (subset >= 0)
        m_position = subset, skipPast("]");
    skipPast(">");
    return false;
}

// From within it. Either end, "-->" or "--!>", is looked for from one pair of hyphens to the next: a
// search for one of them through the rest of the page would be repeated for each comment.
void MarkupTokenizer::skipComment()
{
    qsizetype hyphens = m_markup.indexOf("--", m_position);
    for (; hyphens >= 0; hyphens = m_markup.indexOf("--", hyphens + 1)) {
        const qsizetype end = hyphens + (at(hyphens + 2) == '!' ? 3 : 2);
        if (at(end) == '>') {
            m_position = end + 1;
            return;
        }
    }
    m_position = m_markup.size();
}

bool MarkupTokenizer::readTag()
{
    const bool closing = at(m_position + 1) == '/';
    m_position += closing ? 2 : 1;
    const qsizetype start = m_position;
    while (m_position < m_markup.size() && !isSpace(at(m_position)) && at(m_position) != '/'
           && at(m_position) != '>')
        ++m_position;
    m_name = m_markup.sliced(start, m_position - start).toByteArray();
    if (m_kind == MarkupKind::Html)
        m_name = m_name.toLower();
    readAttributes();
    m_token = closing ? Token::EndTag : Token::StartTag;
    if (!closing && m_kind == MarkupKind::Html && isRawTextElement(m_name))
        m_rawElement = m_name;
    return true;
}

void MarkupTokenizer::readAttributes()
{
    m_attributes.clear();
    m_selfClosing = false;
    while (m_position < m_markup.size()) {
        skipSpace();
        const char first = at(m_position);
        if (first == '>') {
            ++m_position;
            return;
        }
        if (first == '/') {
            ++m_position;
            m_selfClosing = at(m_position) == '>';
            continue;
        }
        Attribute attribute;
        const qsizetype nameStart = m_position;
        // A name may begin with an equals sign.
        if (m_position < m_markup.size())
            ++m_position;
        while (m_position < m_markup.size() && !isSpace(at(m_position)) && at(m_position) != '/'
               && at(m_position) != '>' && at(m_position) != '=')
            ++m_position;
        attribute.name = m_markup.sliced(nameStart, m_position - nameStart);
        skipSpace();
        if (at(m_position) == '=') {
            ++m_position;
            skipSpace();
            const char quote = at(m_position);
            const qsizetype start = m_position + 1;
            if (quote == '"' || quote == '\'') {
                const qsizetype end = m_markup.indexOf(quote, start);
                m_position = end < 0 ? m_markup.size() : end + 1;
                attribute.value = m_markup.sliced(start, (end < 0 ? m_markup.size() : end) - start);
            } else {
                const qsizetype bare = m_position;
                while (m_position < m_markup.size() && !isSpace(at(m_position)) && at(m_position) != '>')
                    ++m_position;
                attribute.value = m_markup.sliced(bare, m_position - bare);
            }
        }
        if (!attribute.name.isEmpty() && m_attributes.size() < maximumAttributes)
            m_attributes += attribute;
    }
}

void MarkupTokenizer::skipSpace()
{
    while (m_position < m_markup.size() && isSpace(at(m_position)))
        ++m_position;
}

void MarkupTokenizer::skipPast(QByteArrayView end)
{
    const qsizetype found = m_markup.indexOf(end, m_position);
    m_position = found < 0 ? m_markup.size() : found + end.size();
}

const MarkupTokenizer::Attribute* MarkupTokenizer::find(const char* name) const
{
    const qsizetype length = qsizetype(qstrlen(name));
    for (const Attribute& attribute : m_attributes) {
        if (attribute.name.size() == length
            && (m_kind == MarkupKind::Html ? qstrnicmp(attribute.name.data(), length, name, length) == 0
                                           : attribute.name == QByteArrayView(name, length)))
            return &attribute;
    }
    return nullptr;
}

QByteArrayView MarkupTokenizer::rawAttribute(const char* name) const
{
    const Attribute* attribute = find(name);
    return attribute ? attribute->value : QByteArrayView();
}

QString MarkupTokenizer::attribute(const char* name) const
{
    const Attribute* attribute = find(name);
    if (!attribute)
        return {};
    const QString value = resolvedReferences(attribute->value);
    return value.isNull() ? QStringLiteral("") : value;
}

} // namespace platform
