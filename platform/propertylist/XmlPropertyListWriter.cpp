// SPDX-License-Identifier: MIT
#include "platform/propertylist/XmlPropertyListWriter.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QBuffer>
#include <QDateTime>

#include <cmath>

namespace platform {

namespace {

constexpr qsizetype base64LineLength = 76;

// A mistake of the program, which no user will read.
constexpr const char* outOfOrder = "The elements of a property list came out of order.";

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

bool xmlPropertyListHoldsDate(const QDateTime& date)
{
    const int year = date.toUTC().date().year();
    return date.isValid() && year >= 1 && year <= 9999;
}

XmlPropertyListWriter::XmlPropertyListWriter(QIODevice& device)
    : m_writer(&device)
{
    m_writer.setAutoFormatting(true);
    m_writer.setAutoFormattingIndent(-1);
    if (!device.isWritable())
        m_error = propertyListError(PropertyListErrorCode::FileWrite, device.errorString());
}

std::optional<QByteArray> XmlPropertyListWriter::data(const QVariant& root, Error* error)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    XmlPropertyListWriter writer(buffer);
    writer.writeValue(root);
    return writer.finish(error) ? std::optional(buffer.data()) : std::nullopt;
}

void XmlPropertyListWriter::beginDictionary()
{
    begin(Container::Dictionary);
}

void XmlPropertyListWriter::endDictionary()
{
    end(Container::Dictionary);
}

void XmlPropertyListWriter::beginArray()
{
    begin(Container::Array);
}

void XmlPropertyListWriter::endArray()
{
    end(Container::Array);
}

void XmlPropertyListWriter::begin(Container container)
{
    if (!takePlaceForValue())
        return;
    if (m_open.size() >= std::size_t(propertyListDepthLimit)) {
        fail("The property list is nested too deeply.");
        return;
    }
    m_writer.writeStartElement(container == Container::Dictionary ? QStringLiteral("dict")
                                                                  : QStringLiteral("array"));
    m_open.push_back(container);
}

void XmlPropertyListWriter::end(Container container)
{
    if (hasFailed())
        return;
    if (m_open.empty() || m_open.back() != container || m_hasKey) {
        fail(outOfOrder);
        return;
    }
    m_writer.writeEndElement();
    m_open.pop_back();
}

void XmlPropertyListWriter::writeKey(const QString& key)
{
    if (hasFailed())
        return;
    if (m_open.empty() || m_open.back() != Container::Dictionary || m_hasKey) {
        fail(outOfOrder);
        return;
    }
    writeText(QStringLiteral("key"), key);
    m_hasKey = true;
}

// A value goes to the root once, into a dictionary after its key, and into an array at any time.
bool XmlPropertyListWriter::takePlaceForValue()
{
    if (hasFailed())
        return false;
    const bool isInDictionary = !m_open.empty() && m_open.back() == Container::Dictionary;
    if (m_hasKey != isInDictionary || (m_open.empty() && m_hasRoot)) {
        fail(outOfOrder);
        return false;
    }
    if (!m_hasRoot)
        writeStart();
    m_hasKey = false;
    m_hasRoot = true;
    return true;
}

void XmlPropertyListWriter::writeStart()
{
    m_writer.writeStartDocument();
    m_writer.writeDTD(QStringLiteral("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\""
                                     " \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"));
    m_writer.writeStartElement(QStringLiteral("plist"));
    m_writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
}

void XmlPropertyListWriter::writeValue(const QVariant& value)
{
    std::vector<Frame> frames;
    const auto writeOne = [this, &frames](const QVariant& one) {
        const std::optional<QVariant> canonical = canonicalPropertyListValue(one);
        if (!canonical) {
            fail("A value has no place in a property list.");
        } else if (canonical->typeId() == QMetaType::QVariantList ||
                   canonical->typeId() == QMetaType::QVariantMap) {
            if (std::optional<Frame> frame = openFrame(*canonical))
                frames.push_back(std::move(*frame));
        } else if (takePlaceForValue()) {
            writeScalar(*canonical);
        }
    };
    writeOne(value);
    while (!frames.empty() && !hasFailed()) {
        Frame& frame = frames.back();
        if (frame.next == frame.elements.size()) {
            end(m_open.back());
            frames.pop_back();
            continue;
        }
        const qsizetype position = frame.next++;
        if (!frame.keys.isEmpty())
            writeKey(frame.keys[position]);
        const QVariant element = frame.elements[position];
        writeOne(element);
    }
}

std::optional<XmlPropertyListWriter::Frame>
XmlPropertyListWriter::openFrame(const QVariant& container)
{
    Frame frame;
    if (container.typeId() == QMetaType::QVariantMap) {
        const QVariantMap dictionary = container.toMap();
        if (!keysStayDistinct(dictionary, TextRepair::ForXml)) {
            fail("Two keys of a dictionary cannot be told apart.");
            return std::nullopt;
        }
        frame.keys = dictionary.keys();
        frame.elements = dictionary.values();
        beginDictionary();
    } else {
        frame.elements = container.toList();
        beginArray();
    }
    return hasFailed() ? std::nullopt : std::optional(frame);
}

bool XmlPropertyListWriter::hasFailed() const
{
    return m_error || m_writer.hasError();
}

bool XmlPropertyListWriter::finish(Error* error)
{
    if (!hasFailed() && (!m_open.empty() || !m_hasRoot))
        fail(outOfOrder);
    if (!hasFailed())
        m_writer.writeEndDocument();
    if (!hasFailed())
        return true;
    setError(error, m_error.value_or(propertyListError(PropertyListErrorCode::FileWrite,
                                                       m_writer.device()->errorString())));
    return false;
}

void XmlPropertyListWriter::writeScalar(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        writeText(QStringLiteral("string"), value.toString());
        return;
    case QMetaType::QByteArray:
        writeText(QStringLiteral("data"), base64Text(value.toByteArray()));
        return;
    case QMetaType::Bool:
        m_writer.writeEmptyElement(value.toBool() ? QStringLiteral("true")
                                                  : QStringLiteral("false"));
        return;
    case QMetaType::LongLong:
        writeText(QStringLiteral("integer"), QString::number(value.toLongLong()));
        return;
    case QMetaType::ULongLong:
        writeText(QStringLiteral("integer"), QString::number(value.toULongLong()));
        return;
    case QMetaType::Float:
    case QMetaType::Double:
        writeText(QStringLiteral("real"), realText(value.toDouble()));
        return;
    case QMetaType::QDateTime:
        writeDate(value.toDateTime());
        return;
    default:
        writeUid(value.value<PropertyListUid>().value);
    }
}

void XmlPropertyListWriter::writeDate(const QDateTime& date)
{
    if (!xmlPropertyListHoldsDate(date)) {
        fail("A date is too far off for an XML property list.");
        return;
    }
    writeText(QStringLiteral("date"),
              date.toUTC().toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss'Z'")));
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

void XmlPropertyListWriter::fail(const char* reason)
{
    m_error = propertyListError(PropertyListErrorCode::WriteInvalid, reason);
}

} // namespace platform
