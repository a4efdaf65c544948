// SPDX-License-Identifier: MIT
#include "platform/pasteboard/Pasteboard.h"

#include "platform/pasteboard/LinkFormats.h"
#include "platform/pasteboard/MimeBytes.h"
#include "platform/pasteboard/PasteboardTypes.h"
#include "platform/propertylist/PropertyList.h"

#include <QUtf8StringView>

namespace platform {

namespace {

bool isUrlType(const QString& type) { return type == pasteboardTypeUrl || type == pasteboardUniformTypeUrl; }

// The MIME type that other programs know a type by; other types go by their own names.
QString formatForType(const QString& type)
{
    static const QStringList textTypes{pasteboardTypeString, pasteboardUniformTypeText, pasteboardUniformTypeUtf8Text,
                                       QStringLiteral("public.plain-text")};
    if (textTypes.contains(type))
        return QStringLiteral("text/plain");
    if (isUrlType(type))
        return QStringLiteral("text/uri-list");
    if (type == pasteboardUniformTypeHtml)
        return QStringLiteral("text/html");
    if (type == pasteboardUniformTypeRtf)
        return QStringLiteral("text/rtf");
    return type;
}

// The name under which the data has the type: its own, or the uniform type's that is made of it.
std::optional<QString> offeredFormat(const QMimeData& data, const QString& type)
{
    const QString format = formatForType(type);
    if (data.hasFormat(format))
        return format;
    const QString uniformType = uniformTypeForPasteboardType(type);
    if (data.hasFormat(uniformType))
        return uniformType;
    // The other way round: the data has the name that this is the uniform type of.
    for (const QString& offered : data.formats()) {
        if (uniformTypeForPasteboardType(offered) == type)
            return offered;
    }
    return std::nullopt;
}

} // namespace

Pasteboard::Pasteboard() { clearContents(); }

Pasteboard::Pasteboard(const QMimeData& offered)
    : m_data(&offered, [](const QMimeData*) {})
{
}

void Pasteboard::clearContents()
{
    m_ownData = std::make_shared<MimeBytes>();
    m_data = m_ownData;
}

MimeBytes& Pasteboard::ownData()
{
    if (!m_ownData)
        clearContents();
    return *m_ownData;
}

bool Pasteboard::offers(const QString& type) const
{
    if (isUrlType(type))
        return offersLink(*m_data);
    if (offeredFormat(*m_data, type))
        return true;
    if (type != pasteboardUniformTypeUrlName)
        return false;
    const auto link = offeredLink(*m_data);
    return link && !link->title.isEmpty();
}

std::optional<QString> Pasteboard::availableTypeFromArray(const QStringList& types) const
{
    for (const QString& type : types) {
        if (offers(type))
            return type;
    }
    return std::nullopt;
}

std::optional<QByteArray> Pasteboard::dataForType(const QString& type) const
{
    if (!offers(type))
        return std::nullopt;
    // A list of addresses is no address.
    const auto format = isUrlType(type) ? std::nullopt : offeredFormat(*m_data, type);
    if (format)
        return m_data->data(*format);
    const auto link = offeredLink(*m_data);
    if (!link)
        return std::nullopt;
    return (isUrlType(type) ? link->address : link->title).toUtf8();
}

std::optional<QString> Pasteboard::stringForType(const QString& type) const
{
    const auto bytes = dataForType(type);
    if (!bytes || !QUtf8StringView(*bytes).isValidUtf8())
        return std::nullopt;
    return QString::fromUtf8(*bytes);
}

std::optional<QVariant> Pasteboard::propertyListForType(const QString& type) const
{
    const auto bytes = dataForType(type);
    return bytes ? propertyListFromData(*bytes) : std::nullopt;
}

std::optional<Url> Pasteboard::url() const
{
    const auto link = offeredLink(*m_data);
    return link ? Url::fromLooseString(link->address) : std::nullopt;
}

void Pasteboard::setData(const QByteArray& bytes, const QString& type)
{
    ownData().setBytes(formatForType(type), bytes);
}

void Pasteboard::setString(const QString& text, const QString& type) { setData(text.toUtf8(), type); }

bool Pasteboard::setPropertyList(const QVariant& value, const QString& type, Error* error)
{
    const auto bytes = propertyListData(value, PropertyListFormat::Binary, error);
    if (bytes)
        setData(*bytes, type);
    return bytes.has_value();
}

void Pasteboard::writeUrl(const Url& url)
{
    setData(url.absoluteString().toLatin1() + "\r\n", pasteboardTypeUrl);
}

std::unique_ptr<QMimeData> Pasteboard::mimeData() const
{
    auto copy = std::make_unique<MimeBytes>();
    for (const QString& format : m_data->formats())
        copy->setBytes(format, m_data->data(format));
    return copy;
}

} // namespace platform
