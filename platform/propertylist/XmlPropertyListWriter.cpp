// SPDX-License-Identifier: MIT
#include "platform/propertylist/XmlPropertyListWriter.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QDateTime>

#include <cmath>

namespace platform {

namespace {

constexpr qsizetype base64LineLength = 76;

QString realText(double value)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("+infinity") : QStringLiteral("-infinity");
    // Qt's conversion loses this sign.
    if (value == 0 && std::signbit(value))
        return QStringLiteral("-0.0");
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString base64Text(const QByteArray& data)
{
    const QByteArray encoded = data.toBase64();
    QByteArray lines;
    lines.reserve(encoded.size() + encoded.size() / base64LineLength + 2);
    for (qsizetype start = 0; start < encoded.size(); start += base64LineLength) {
        lines += '\n';
        lines += encoded.mid(start, base64LineLength);
    }
    if (!lines.isEmpty())
        lines += '\n';
    return QString::fromLatin1(lines);
}

} // namespace

XmlPropertyListWriter::XmlPropertyListWriter()
    : m_writer(&m_bytes)
{
    m_writer.setAutoFormatting(true);
    m_writer.setAutoFormattingIndent(-1);
}

std::optional<QByteArray> XmlPropertyListWriter::write(const QVariant& root, Error* error)
{
    m_writer.writeStartDocument();
    m_writer.writeDTD(QStringLiteral("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\""
                                     " \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"));
    m_writer.writeStartElement(QStringLiteral("plist"));
    m_writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    if (!writeValue(root) || !writeElements()) {
        setError(error, m_error);
        return std::nullopt;
    }
    m_writer.writeEndDocument();
    return m_bytes;
}

bool XmlPropertyListWriter::writeElements()
{
    while (!m_open.empty()) {
        Frame& frame = m_open.back();
        if (frame.next == frame.elements.size()) {
            m_writer.writeEndElement();
            m_open.pop_back();
            continue;
        }
        const qsizetype position = frame.next++;
        if (!frame.keys.isEmpty())
            writeText(QStringLiteral("key"), frame.keys[position]);
        const QVariant element = frame.elements[position];
        if (!writeValue(element))
            return false;
    }
    return true;
}

bool XmlPropertyListWriter::writeValue(const QVariant& value)
{
    const std::optional<QVariant> canonical = canonicalPropertyListValue(value);
    if (!canonical)
        return fail("A value has no place in a property list.");
    const int type = canonical->typeId();
    if (type == QMetaType::QVariantList || type == QMetaType::QVariantMap)
        return openContainer(*canonical);
    return writeScalar(*canonical);
}

bool XmlPropertyListWriter::openContainer(const QVariant& container)
{
    if (m_open.size() >= std::size_t(propertyListDepthLimit))
        return fail("The property list is nested too deeply.");
    Frame frame;
    const bool isDictionary = container.typeId() == QMetaType::QVariantMap;
    if (isDictionary) {
        const QVariantMap dictionary = container.toMap();
        if (!keysStayDistinct(dictionary, TextRepair::ForXml))
            return fail("Two keys of a dictionary cannot be told apart.");
        frame.keys = dictionary.keys();
        frame.elements = dictionary.values();
    } else {
        frame.elements = container.toList();
    }
    m_writer.writeStartElement(isDictionary ? QStringLiteral("dict") : QStringLiteral("array"));
    m_open.push_back(std::move(frame));
    return true;
}

bool XmlPropertyListWriter::writeScalar(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        writeText(QStringLiteral("string"), value.toString());
        return true;
    case QMetaType::QByteArray:
        writeText(QStringLiteral("data"), base64Text(value.toByteArray()));
        return true;
    case QMetaType::Bool:
        m_writer.writeEmptyElement(value.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
        return true;
    case QMetaType::LongLong:
        writeText(QStringLiteral("integer"), QString::number(value.toLongLong()));
        return true;
    case QMetaType::ULongLong:
        writeText(QStringLiteral("integer"), QString::number(value.toULongLong()));
        return true;
    case QMetaType::Float:
    case QMetaType::Double:
        writeText(QStringLiteral("real"), realText(value.toDouble()));
        return true;
    case QMetaType::QDateTime:
        return writeDate(value.toDateTime());
    default:
        writeUid(value.value<PropertyListUid>().value);
        return true;
    }
}

bool XmlPropertyListWriter::writeDate(const QDateTime& date)
{
    const QDateTime utc = date.toUTC();
    const int year = utc.date().year();
    if (year < 1 || year > 9999)
        return fail("A date is too far off for an XML property list.");
    writeText(QStringLiteral("date"), utc.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss'Z'")));
    return true;
}

// XML has no element for references; this dictionary is what readers of archives look for.
void XmlPropertyListWriter::writeUid(quint32 uid)
{
    m_writer.writeStartElement(QStringLiteral("dict"));
    writeText(QStringLiteral("key"), QStringLiteral("CF$UID"));
    writeText(QStringLiteral("integer"), QString::number(uid));
    m_writer.writeEndElement();
}

void XmlPropertyListWriter::writeText(const QString& element, const QString& text)
{
    m_writer.writeStartElement(element);
    // A bare carriage return would be read as a line feed.
    const QStringList parts = repairedText(text, TextRepair::ForXml).split(QLatin1Char('\r'));
    for (qsizetype position = 0; position < parts.size(); ++position) {
        if (position > 0)
            m_writer.writeEntityReference(QStringLiteral("#13"));
        if (!parts[position].isEmpty())
            m_writer.writeCharacters(parts[position]);
    }
    m_writer.writeEndElement();
}

bool XmlPropertyListWriter::fail(const char* reason)
{
    m_error = propertyListError(PropertyListErrorCode::WriteInvalid, reason);
    return false;
}

} // namespace platform
