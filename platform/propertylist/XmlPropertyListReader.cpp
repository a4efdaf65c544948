// SPDX-License-Identifier: MIT
#include "platform/propertylist/XmlPropertyListReader.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QDateTime>

#include <limits>

namespace platform {

namespace {

std::optional<QVariant> integerFromText(const QString& text)
{
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    QString digits = text;
    if (isNegative || text.startsWith(QLatin1Char('+')))
        digits.remove(0, 1);
    const bool isHexadecimal = digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    if (isHexadecimal)
        digits.remove(0, 2);
    // What is left must be digits alone: the conversion itself would take a second sign or blanks.
    if (digits.isEmpty() || !digits.front().isLetterOrNumber())
        return std::nullopt;
    bool isNumber = false;
    const quint64 magnitude = digits.toULongLong(&isNumber, isHexadecimal ? 16 : 10);
    constexpr quint64 limit = quint64(std::numeric_limits<qint64>::max());
    if (!isNumber || (isNegative && magnitude > limit + 1))
        return std::nullopt;
    if (isNegative)
        return QVariant(qlonglong(-magnitude));
    return magnitude <= limit ? QVariant(qlonglong(magnitude)) : QVariant(qulonglong(magnitude));
}

std::optional<QVariant> realFromText(const QString& text)
{
    const QString name = text.toLower();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (name == QLatin1String("nan"))
        return QVariant(std::numeric_limits<double>::quiet_NaN());
    if (name == QLatin1String("inf") || name == QLatin1String("infinity") ||
        name == QLatin1String("+infinity"))
        return QVariant(infinity);
    if (name == QLatin1String("-inf") || name == QLatin1String("-infinity"))
        return QVariant(-infinity);
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber ? std::optional(QVariant(value)) : std::nullopt;
}

std::optional<QVariant> dateFromText(const QString& text)
{
    if (!text.endsWith(QLatin1Char('Z')))
        return std::nullopt;
    const QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    return date.isValid() ? std::optional(QVariant(date.toUTC())) : std::nullopt;
}

std::optional<QVariant> dataFromText(const QString& text)
{
    QByteArray encoded = text.toLatin1();
    const auto isBlank = [](char byte) {
        return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
    };
    encoded.erase(std::remove_if(encoded.begin(), encoded.end(), isBlank), encoded.end());
    const auto decoded =
        QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(QVariant(*decoded)) : std::nullopt;
}

// A dictionary that stands for a reference within a keyed archive.
std::optional<QVariant> uidFromDictionary(const QVariantMap& dictionary)
{
    if (dictionary.size() != 1 || dictionary.firstKey() != QLatin1String("CF$UID"))
        return std::nullopt;
    const QVariant& uid = dictionary.first();
    if (uid.typeId() != QMetaType::LongLong || uid.toLongLong() < 0 ||
        uid.toLongLong() > std::numeric_limits<quint32>::max())
        return std::nullopt;
    return QVariant::fromValue(PropertyListUid{quint32(uid.toLongLong())});
}

} // namespace

XmlPropertyListReader::XmlPropertyListReader(const QByteArray& data)
    : m_reader(data)
{
}

std::optional<QVariant> XmlPropertyListReader::read(Error* error)
{
    if (readRoot() && m_hasRoot)
        return m_root;
    if (m_reason.isEmpty())
        m_reason =
            m_reader.hasError() ? m_reader.errorString() : QStringLiteral("There is no value.");
    const QString place = QString::number(m_reader.lineNumber());
    setError(error, propertyListError(PropertyListErrorCode::ReadCorrupt,
                                      QStringLiteral("%1 (line %2)").arg(m_reason, place)));
    return std::nullopt;
}

bool XmlPropertyListReader::readRoot()
{
    while (!m_reader.atEnd()) {
        bool succeeded = true;
        switch (m_reader.readNext()) {
        case QXmlStreamReader::DTD:
            if (!m_reader.entityDeclarations().isEmpty())
                return fail(QStringLiteral("A property list declares no entities."));
            break;
        case QXmlStreamReader::StartElement:
            succeeded = startElement();
            break;
        case QXmlStreamReader::EndElement:
            succeeded = endElement();
            break;
        case QXmlStreamReader::Characters:
            if (!m_reader.isWhitespace())
                return fail(QStringLiteral("There is text outside of the values."));
            break;
        default:
            break;
        }
        if (!succeeded)
            return false;
    }
    return !m_reader.hasError();
}

bool XmlPropertyListReader::startElement()
{
    const QString element = m_reader.name().toString();
    if (!m_isInsidePlist) {
        m_isInsidePlist = element == QLatin1String("plist");
        return m_isInsidePlist || fail(QStringLiteral("This is no property list."));
    }
    if (element == QLatin1String("key"))
        return readKey();
    if (element == QLatin1String("dict") || element == QLatin1String("array"))
        return openContainer(element == QLatin1String("dict"));
    const std::optional<QVariant> value = readScalar(element);
    if (!value)
        return fail(QStringLiteral("The element <%1> is not valid.").arg(element));
    return addValue(*value);
}

bool XmlPropertyListReader::openContainer(bool isDictionary)
{
    if (m_open.size() >= std::size_t(propertyListDepthLimit))
        return fail(QStringLiteral("The property list is nested too deeply."));
    m_open.push_back({isDictionary, {}, {}, {}, false});
    return true;
}

bool XmlPropertyListReader::readKey()
{
    if (m_open.empty() || !m_open.back().isDictionary || m_open.back().hasKey)
        return fail(QStringLiteral("There is a key in the wrong place."));
    m_open.back().key = m_reader.readElementText();
    m_open.back().hasKey = true;
    return !m_reader.hasError();
}

bool XmlPropertyListReader::endElement()
{
    if (m_open.empty())
        return true;
    const Frame frame = std::move(m_open.back());
    m_open.pop_back();
    if (!frame.isDictionary)
        return addValue(frame.list);
    if (frame.hasKey)
        return fail(QStringLiteral("A key has no value."));
    const std::optional<QVariant> uid = uidFromDictionary(frame.dictionary);
    return addValue(uid ? *uid : QVariant(frame.dictionary));
}

bool XmlPropertyListReader::addValue(const QVariant& value)
{
    if (m_open.empty()) {
        if (m_hasRoot)
            return fail(QStringLiteral("There is more than one value."));
        m_root = value;
        m_hasRoot = true;
        return true;
    }
    Frame& frame = m_open.back();
    if (!frame.isDictionary) {
        frame.list.append(value);
        return true;
    }
    if (!frame.hasKey)
        return fail(QStringLiteral("A value has no key."));
    frame.dictionary.insert(frame.key, value);
    frame.hasKey = false;
    return true;
}

std::optional<QVariant> XmlPropertyListReader::readScalar(const QString& element)
{
    const QString text = m_reader.readElementText();
    if (m_reader.hasError())
        return std::nullopt;
    if (element == QLatin1String("string"))
        return QVariant(text);
    if (element == QLatin1String("data"))
        return dataFromText(text);
    const QString trimmed = text.trimmed();
    if (element == QLatin1String("integer"))
        return integerFromText(trimmed);
    if (element == QLatin1String("real"))
        return realFromText(trimmed);
    if (element == QLatin1String("date"))
        return dateFromText(trimmed);
    if (trimmed.isEmpty() && element == QLatin1String("true"))
        return QVariant(true);
    if (trimmed.isEmpty() && element == QLatin1String("false"))
        return QVariant(false);
    return std::nullopt;
}

bool XmlPropertyListReader::fail(const QString& reason)
{
    m_reason = reason;
    return false;
}

} // namespace platform
