// SPDX-License-Identifier: MIT
#include "platform/propertylist/TextPropertyListReader.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

namespace platform {

namespace {

bool isWordUnit(QChar unit)
{
    const char16_t code = unit.unicode();
    const bool isAlphanumeric = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') ||
                                (code >= '0' && code <= '9');
    return isAlphanumeric || code == '_' || code == '$' || code == '/' || code == ':' ||
           code == '.' || code == '-';
}

int digitValue(QChar unit)
{
    const char16_t code = unit.unicode();
    if (code >= '0' && code <= '9')
        return code - '0';
    if (code >= 'a' && code <= 'f')
        return code - 'a' + 10;
    return code >= 'A' && code <= 'F' ? code - 'A' + 10 : 16;
}

} // namespace

TextPropertyListReader::TextPropertyListReader(QString text)
    : m_text(std::move(text))
{
}

std::optional<QVariant> TextPropertyListReader::read(Error* error)
{
    const std::optional<QVariant> root = readDocument();
    if (!root) {
        const QString reason =
            QStringLiteral("The property list is damaged at character %1.").arg(m_position + 1);
        setError(error, propertyListError(PropertyListErrorCode::ReadCorrupt, reason));
    }
    return root;
}

std::optional<QVariant> TextPropertyListReader::readDocument()
{
    if (!skipBlanks() || atEnd())
        return std::nullopt;
    const QChar first = current();
    if (first != u'{' && first != u'(' && first != u'<') {
        const std::optional<QString> text = readString();
        if (!text || !skipBlanks())
            return std::nullopt;
        if (atEnd())
            return QVariant(*text);
        m_position = 0;
        m_open.push_back({true, true, {}, {}, {}});
    }
    return readValues();
}

std::optional<QVariant> TextPropertyListReader::readValues()
{
    QVariant root;
    do {
        if (!skipBlanks() || !readNext(&root))
            return std::nullopt;
    } while (!m_open.empty());
    if (!skipBlanks() || !atEnd())
        return std::nullopt;
    return root;
}

// One value, or the end of the container that is open.
bool TextPropertyListReader::readNext(QVariant* root)
{
    if (!m_open.empty()) {
        const Frame& frame = m_open.back();
        const bool isClosed = frame.isBraceless ? atEnd() : take(frame.isDictionary ? '}' : ')');
        if (isClosed)
            return closeContainer(root);
        if (frame.isDictionary && !readEntryKey())
            return false;
        // The key of an entry may stand for its value as well: "key";
        if (frame.isDictionary && current() == u';')
            return addValue(QVariant(frame.key), root);
        if (frame.isDictionary && (!take('=') || !skipBlanks()))
            return false;
    }
    if (take('{'))
        return openContainer(true);
    if (take('('))
        return openContainer(false);
    if (take('<')) {
        const std::optional<QVariant> data = readData();
        return data && addValue(*data, root);
    }
    const std::optional<QString> text = readString();
    return text && addValue(QVariant(*text), root);
}

bool TextPropertyListReader::readEntryKey()
{
    const std::optional<QString> key = readString();
    if (!key || !skipBlanks())
        return false;
    m_open.back().key = *key;
    return true;
}

bool TextPropertyListReader::openContainer(bool isDictionary)
{
    if (m_open.size() >= std::size_t(propertyListDepthLimit))
        return false;
    m_open.push_back({isDictionary, false, {}, {}, {}});
    return true;
}

bool TextPropertyListReader::closeContainer(QVariant* root)
{
    const Frame frame = std::move(m_open.back());
    m_open.pop_back();
    return addValue(frame.isDictionary ? QVariant(frame.dictionary) : QVariant(frame.list), root);
}

// Adds to the open container and takes the separator behind the value.
bool TextPropertyListReader::addValue(const QVariant& value, QVariant* root)
{
    if (m_open.empty()) {
        *root = value;
        return true;
    }
    if (!skipBlanks())
        return false;
    Frame& frame = m_open.back();
    if (frame.isDictionary) {
        frame.dictionary.insert(frame.key, value);
        return take(';');
    }
    frame.list.append(value);
    return take(',') || current() == u')';
}

std::optional<QString> TextPropertyListReader::readString()
{
    if (take('"'))
        return readQuoted(u'"');
    if (take('\''))
        return readQuoted(u'\'');
    return readWord();
}

std::optional<QString> TextPropertyListReader::readWord()
{
    const qsizetype start = m_position;
    while (!atEnd() && isWordUnit(current()))
        ++m_position;
    if (m_position == start)
        return std::nullopt;
    return m_text.mid(start, m_position - start);
}

std::optional<QString> TextPropertyListReader::readQuoted(QChar quote)
{
    QString text;
    while (!atEnd()) {
        const QChar unit = m_text[m_position++];
        if (unit == quote)
            return text;
        if (unit != u'\\') {
            text += unit;
            continue;
        }
        const std::optional<QChar> escaped = readEscape();
        if (!escaped)
            return std::nullopt;
        text += *escaped;
    }
    return std::nullopt;
}

std::optional<QChar> TextPropertyListReader::readEscape()
{
    if (atEnd())
        return std::nullopt;
    const QChar unit = m_text[m_position++];
    static constexpr char16_t names[] = u"abfnrtv";
    static constexpr char16_t values[] = u"\a\b\f\n\r\t\v";
    for (std::size_t index = 0; names[index] != 0; ++index) {
        if (unit == names[index])
            return QChar(values[index]);
    }
    const bool isHexadecimal = unit == u'U' || unit == u'u';
    if (!isHexadecimal && digitValue(unit) > 7)
        return unit;
    const int base = isHexadecimal ? 16 : 8;
    int value = isHexadecimal ? 0 : digitValue(unit);
    for (int count = isHexadecimal ? 4 : 2; count > 0 && digitValue(current()) < base; --count)
        value = value * base + digitValue(m_text[m_position++]);
    if (!isHexadecimal && value > 0177)
        return std::nullopt;
    return QChar(char16_t(value));
}

std::optional<QVariant> TextPropertyListReader::readData()
{
    QByteArray digits;
    while (skipBlanks() && digitValue(current()) < 16)
        digits += char(m_text[m_position++].toLatin1());
    if (!take('>') || digits.size() % 2 != 0)
        return std::nullopt;
    return QVariant(QByteArray::fromHex(digits));
}

// False when a comment does not end.
bool TextPropertyListReader::skipBlanks()
{
    while (!atEnd()) {
        if (current().isSpace()) {
            ++m_position;
            continue;
        }
        const QStringView rest = QStringView(m_text).sliced(m_position);
        const bool isLineComment = rest.startsWith(u"//");
        if (!isLineComment && !rest.startsWith(u"/*"))
            return true;
        const qsizetype end = isLineComment ? m_text.indexOf(u'\n', m_position)
                                            : m_text.indexOf(QLatin1String("*/"), m_position + 2);
        if (end < 0 && !isLineComment)
            return false;
        m_position = end < 0 ? m_text.size() : end + (isLineComment ? 1 : 2);
    }
    return true;
}

bool TextPropertyListReader::take(char expected)
{
    if (current() != QLatin1Char(expected) || atEnd())
        return false;
    ++m_position;
    return true;
}

} // namespace platform
