// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"

#include "platform/propertylist/BinaryPropertyListReader.h"
#include "platform/propertylist/BinaryPropertyListWriter.h"
#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListFile.h"
#include "platform/propertylist/TextPropertyListReader.h"
#include "platform/propertylist/XmlPropertyListReader.h"
#include "platform/propertylist/XmlPropertyListWriter.h"

#include <QFile>
#include <QStringDecoder>

namespace platform {

namespace {

// The text form of the data, by its byte order mark, or UTF-8; none when the bytes are neither.
std::optional<QString> decodedText(QByteArrayView data)
{
    const auto marked = QStringConverter::encodingForData(data);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8));
    const QString text = decoder.decode(data);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

bool looksLikeXml(QStringView text)
{
    const QStringView start = text.trimmed();
    return start.startsWith(u"<?") || start.startsWith(u"<!") || start.startsWith(u"<plist");
}

} // namespace

std::optional<QByteArray> propertyListData(const QVariant& value, PropertyListFormat format,
                                           Error* error)
{
    if (format == PropertyListFormat::Binary)
        return BinaryPropertyListWriter().write(value, error);
    return XmlPropertyListWriter::data(value, error);
}

std::optional<QVariant> propertyListFromData(QByteArrayView data, Error* error)
{
    if (data.startsWith("bplist"))
        return BinaryPropertyListReader(data).read(error);
    // An XML document may name its own encoding; markup itself reads the same in all that occur.
    constexpr qsizetype startLength = 512;
    const QByteArrayView start = data.first(std::min(data.size(), startLength));
    const auto marked = QStringConverter::encodingForData(start);
    const QString startText =
        QStringDecoder(marked.value_or(QStringConverter::Latin1)).decode(start);
    if (looksLikeXml(startText)) {
        const QByteArray bytes = QByteArray::fromRawData(data.data(), data.size());
        return XmlPropertyListReader(bytes).read(error);
    }
    const std::optional<QString> text = decodedText(data);
    if (!text) {
        setError(error, propertyListError(PropertyListErrorCode::ReadCorrupt,
                                          "The property list is damaged."));
        return std::nullopt;
    }
    return TextPropertyListReader(*text).read(error);
}

std::optional<QVariant> readPropertyList(const QString& path, Error* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        const auto code =
            file.exists() ? PropertyListErrorCode::FileRead : PropertyListErrorCode::NoSuchFile;
        setError(error, propertyListError(code, file.errorString()));
        return std::nullopt;
    }
    const QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        setError(error, propertyListError(PropertyListErrorCode::FileRead, file.errorString()));
        return std::nullopt;
    }
    return propertyListFromData(data, error);
}

bool writePropertyList(const QString& path, const QVariant& value, PropertyListFormat format,
                       Error* error)
{
    const std::optional<QByteArray> data = propertyListData(value, format, error);
    if (!data)
        return false;
    PropertyListFile file(path);
    file.write(*data);
    return file.commit(error);
}

} // namespace platform
