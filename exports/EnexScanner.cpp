// SPDX-License-Identifier: MIT
#include "exports/EnexScanner.h"

#include "exports/ScannedTag.h"
#include "exports/XmlBytes.h"

#include <QRegularExpression>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view cDataEnd = "]]>";
constexpr std::string_view noteName = "note";
// Of UTF-8, in bytes.
constexpr qsizetype longestCharacter = 4;
// Fewer than the parser's own limit.
constexpr std::size_t deepestNesting = 200;
constexpr std::size_t longestDeclaration = 1024;
// Of a tag; real ones take some 200 bytes.
constexpr qsizetype longestTag = 16 * 1024;
constexpr qsizetype longestComment = 64 * 1024;

// The text up to the first such end, which is part of it; empty where there is none.
std::string_view textUpTo(std::string_view text, std::string_view end)
{
    const std::size_t position = text.find(end);
    return position == std::string_view::npos ? std::string_view()
                                              : text.substr(0, position + end.size());
}

bool matches(std::string_view text, const QRegularExpression& pattern)
{
    return pattern.match(QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())))
        .hasMatch();
}

} // namespace

EnexScanner::EnexScanner(platform::InputStream& stream)
    : m_window(stream)
{
}

EnexScanner::Outcome EnexScanner::scan()
{
    const bool isKnown = scanDocument();
    if (!m_window.error().isNull())
        return Outcome::Unreadable;
    return isKnown ? Outcome::Known : Outcome::Unknown;
}

bool EnexScanner::scanDocument()
{
    if (!scanProlog() || !scanStartTag() || !scanContent())
        return false;
    for (;;) {
        if (!scanWhiteSpace())
            return false;
        if (m_window.size() == 0)
            return true;
        if (!passLiteral("<!--") || !scanComment())
            return false;
    }
}

// What may stand before the root element; the window then begins with its tag.
bool EnexScanner::scanProlog()
{
    static const QRegularExpression declaration(QStringLiteral(
        "^<\\?xml[ \\t\\r\\n]+version[ \\t\\r\\n]*=[ \\t\\r\\n]*(\"1\\.0\"|'1\\.0')"
        "([ \\t\\r\\n]+encoding[ \\t\\r\\n]*=[ \\t\\r\\n]*(\"(?i:utf-8)\"|'(?i:utf-8)'))?"
        "([ \\t\\r\\n]+standalone[ \\t\\r\\n]*=[ \\t\\r\\n]*(\"(yes|no)\"|'(yes|no)'))?"
        "[ \\t\\r\\n]*\\?>$"));
    static const QRegularExpression docType(
        QStringLiteral("^<!DOCTYPE[ \\t\\r\\n]+[A-Za-z][A-Za-z0-9-]*"
                       "([ \\t\\r\\n]+SYSTEM[ \\t\\r\\n]+(\"[A-Za-z0-9:/._-]*\"|"
                       "'[A-Za-z0-9:/._-]*'))?[ \\t\\r\\n]*>$"));
    const auto passMatching = [this](std::string_view end, const QRegularExpression& pattern) {
        m_window.require(longestDeclaration);
        const std::string_view text = textUpTo(m_window.bytes().substr(0, longestDeclaration), end);
        const bool isKnown = matches(text, pattern);
        m_window.skip(static_cast<qsizetype>(text.size()));
        return isKnown;
    };
    static_cast<void>(passLiteral(byteOrderMark));
    m_window.require(2);
    if (m_window.bytes().starts_with("<?") && !passMatching("?>", declaration))
        return false;
    for (bool hadDocType = false;;) {
        if (!scanWhiteSpace())
            return false;
        m_window.require(2);
        if (passLiteral("<!--")) {
            if (!scanComment())
                return false;
        } else if (m_window.bytes().starts_with("<!")) {
            if (std::exchange(hadDocType, true))
                return false;
            if (!passMatching(">", docType))
                return false;
        } else {
            return true;
        }
    }
}

// From behind the root's tag to behind its end.
bool EnexScanner::scanContent()
{
    while (!m_nameLengths.empty()) {
        if (!scanText() || !scanMarkup())
            return false;
    }
    return true;
}

bool EnexScanner::scanMarkup()
{
    if (!m_window.require(2))
        return false;
    const char second = m_window.begin()[1];
    if (second == '/')
        return scanEndTag();
    if (second != '!')
        return scanStartTag();
    if (passLiteral("<![CDATA["))
        return scanCData();
    return passLiteral("<!--") && scanComment();
}

bool EnexScanner::scanStartTag()
{
    m_window.require(longestTag);
    const qint64 start = m_window.offset();
    ScannedTag tag(
        {m_window.begin(), static_cast<std::size_t>(std::min(m_window.size(), longestTag))});
    if (!tag.read() || m_nameLengths.size() >= deepestNesting)
        return false;
    if (m_nameLengths.empty()) {
        m_application = tag.attribute("application");
        m_version = tag.attribute("version");
    }
    if (tag.name() == noteName) {
        if (m_nameLengths.size() != 1)
            return false;
        m_noteStart = start;
    }
    m_openNames += tag.name();
    m_nameLengths.push_back(tag.name().size());
    m_window.skip(tag.length());
    if (tag.isEmpty())
        endElement();
    return true;
}

bool EnexScanner::scanEndTag()
{
    m_window.require(longestTag);
    const char* const end = m_window.begin() + std::min(m_window.size(), longestTag);
    const char* const nameStart = m_window.begin() + 2;
    const char* place = std::find_if_not(nameStart, end, xmlbytes::continuesName);
    const std::string_view name(nameStart, static_cast<std::size_t>(place - nameStart));
    place = std::find_if_not(place, end, xmlbytes::isWhiteSpace);
    if (place == end || *place != '>' || name.size() != m_nameLengths.back() ||
        !m_openNames.ends_with(name))
        return false;
    m_window.moveTo(place + 1);
    endElement();
    return true;
}

void EnexScanner::endElement()
{
    if (m_noteStart >= 0 && m_nameLengths.size() == 2) {
        ++m_noteCount;
        if (m_noteFound)
            m_noteFound(m_noteStart, m_window.offset());
        m_noteStart = -1;
    }
    m_openNames.resize(m_openNames.size() - m_nameLengths.back());
    m_nameLengths.pop_back();
}

bool EnexScanner::scanText()
{
    while (m_window.require(1)) {
        m_window.moveTo(xmlbytes::firstSpecialInText(m_window.begin(), m_window.end()));
        if (m_window.size() == 0)
            continue;
        const char byte = *m_window.begin();
        if (byte == '<')
            return true;
        if (!(byte == '&' ? passReference() : passSpecial()))
            return false;
    }
    return false;
}

bool EnexScanner::scanCData()
{
    while (m_window.require(1)) {
        m_window.moveTo(xmlbytes::firstSpecialInCData(m_window.begin(), m_window.end()));
        if (m_window.size() == 0)
            continue;
        if (passLiteral(cDataEnd))
            return true;
        if (!passSpecial())
            return false;
    }
    return false;
}

bool EnexScanner::scanComment()
{
    m_window.require(longestComment);
    const auto length = static_cast<std::size_t>(std::min(m_window.size(), longestComment));
    const std::string_view text = textUpTo({m_window.begin(), length}, "--");
    const char* const end = m_window.begin() + text.size();
    while (!text.empty() && m_window.begin() < end) {
        m_window.moveTo(xmlbytes::firstSpecialInCData(m_window.begin(), end));
        if (m_window.begin() < end && !passSpecial())
            return false;
    }
    return !text.empty() && passLiteral(">");
}

bool EnexScanner::scanWhiteSpace()
{
    while (m_window.require(1)) {
        const char* const place =
            std::find_if_not(m_window.begin(), m_window.end(), xmlbytes::isWhiteSpace);
        m_window.moveTo(place);
        if (m_window.size() > 0)
            return true;
    }
    return m_window.error().isNull();
}

bool EnexScanner::passReference()
{
    m_window.require(xmlbytes::longestReference);
    const qsizetype length = xmlbytes::lengthOfReference(m_window.bytes());
    m_window.skip(length);
    return length > 0;
}

// A bracket that ends nothing, or characters beyond ASCII.
bool EnexScanner::passSpecial()
{
    if (*m_window.begin() == ']') {
        m_window.require(static_cast<qsizetype>(cDataEnd.size()));
        const bool isEnd = m_window.bytes().starts_with(cDataEnd);
        m_window.skip(1);
        return !isEnd;
    }
    do {
        m_window.require(longestCharacter);
        const qsizetype length = xmlbytes::lengthOfCharacter(m_window.bytes());
        if (length == 0)
            return false;
        m_window.skip(length);
    } while (m_window.size() > 0 && static_cast<unsigned char>(*m_window.begin()) >= 0x80);
    return true;
}

bool EnexScanner::passLiteral(std::string_view literal)
{
    const auto length = static_cast<qsizetype>(literal.size());
    if (!m_window.require(length) || !m_window.bytes().starts_with(literal))
        return false;
    m_window.skip(length);
    return true;
}
