// SPDX-License-Identifier: MIT
#include "platform/files/ResourceValues.h"

#include "platform/files/ExtendedAttributes.h"
#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"
#include "platform/propertylist/PropertyList.h"

#include <QTimeZone>
#include <QtEndian>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

// The attributes of one open file, of which only those that it has are asked for.
class ValueReading {
public:
    explicit ValueReading(int descriptor)
        : m_descriptor(descriptor)
        , m_names(attributes::names(descriptor))
    {
    }

    [[nodiscard]] std::optional<QByteArray> bytes(const char* name) const
    {
        const QByteArray delimited = QByteArray(1, '\0') + name + '\0';
        return m_names.contains(delimited) ? attributes::value(m_descriptor, name) : std::nullopt;
    }

    // A value of another type, or what is no property list at all, counts as none.
    [[nodiscard]] QVariant propertyList(const char* name) const
    {
        const auto data = bytes(name);
        return data ? propertyListFromData(*data).value_or(QVariant()) : QVariant();
    }

    [[nodiscard]] std::optional<QString> text(const char* name) const
    {
        const auto data = bytes(name);
        return data ? std::optional(QString::fromUtf8(*data)) : std::nullopt;
    }

    [[nodiscard]] std::optional<bool> hasHiddenExtension() const
    {
        const auto info = bytes(attributes::finderInfo);
        if (!info || info->size() != attributes::finderInfoLength)
            return std::nullopt;
        const quint16 flags =
            qFromBigEndian<quint16>(info->constData() + attributes::finderFlagsOffset);
        return (flags & attributes::hiddenExtensionFlag) != 0;
    }

    [[nodiscard]] std::optional<QStringList> tagNames() const
    {
        const QVariant list = propertyList(attributes::finderTags);
        if (list.metaType().id() != QMetaType::QVariantList) {
            const auto joined = text(attributes::desktopTags);
            return joined ? std::optional(joined->split(QLatin1Char(','))) : std::nullopt;
        }
        QStringList names;
        for (const QVariant& tag : list.toList())
            names += tag.toString().section(QLatin1Char('\n'), 0, 0); // a colour follows
        return names;
    }

    [[nodiscard]] std::optional<QString> comment() const
    {
        const QVariant comment = propertyList(attributes::finderComment);
        return comment.metaType().id() == QMetaType::QString ? comment.toString()
                                                             : text(attributes::desktopComment);
    }

    [[nodiscard]] std::optional<QString> originUrl() const
    {
        const QVariantList origins = propertyList(attributes::finderOrigins).toList();
        return origins.isEmpty() ? text(attributes::desktopOrigin) : origins.first().toString();
    }

private:
    int m_descriptor;
    QByteArray m_names;
};

QDateTime dateFromTimestamp(const struct statx_timestamp& timestamp)
{
    const qint64 milliseconds = qint64(timestamp.tv_sec) * 1000 + timestamp.tv_nsec / 1'000'000;
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

} // namespace

std::optional<ResourceValues> resourceValues(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    system::Descriptor file;
    if (native)
        file = system::open(*native, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    struct statx status = {};
    if (!file.isOpen() ||
        ::statx(file.number(), "", AT_EMPTY_PATH, STATX_MTIME | STATX_BTIME, &status) != 0) {
        setError(error, fileError(FileAccess::Read, path, native ? errno : EINVAL));
        return std::nullopt;
    }

    const ValueReading reading(file.number());
    ResourceValues values;
    values.contentModificationDate = dateFromTimestamp(status.stx_mtime);
    const QVariant creationDate = reading.propertyList(attributes::creationDate);
    if (creationDate.metaType().id() == QMetaType::QDateTime)
        values.creationDate = creationDate.toDateTime();
    else if (status.stx_mask & STATX_BTIME)
        values.creationDate = dateFromTimestamp(status.stx_btime);
    values.hasHiddenExtension = reading.hasHiddenExtension();
    values.tagNames = reading.tagNames();
    values.comment = reading.comment();
    values.originUrl = reading.originUrl();
    return values;
}

} // namespace platform
