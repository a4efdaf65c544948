// SPDX-License-Identifier: MIT
#include "platform/files/ResourceValues.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/ExtendedAttributes.h"
#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"
#include "platform/propertylist/PropertyList.h"

#include <QtEndian>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

// Sets the values of one open file and keeps the first failure.
class ValueSetting {
public:
    ValueSetting(QString path, int descriptor)
        : m_path(std::move(path))
        , m_descriptor(descriptor)
        , m_hasAttributes(attributes::hasAny(descriptor))
    {
    }

    [[nodiscard]] const std::optional<Error>& failure() const { return m_failure; }

    void setCreationDate(const QDateTime& date)
    {
        setPropertyList(attributes::creationDate, date.toUTC());
    }

    void setModificationDate(const QDateTime& date)
    {
        if (!date.isValid()) {
            note(EINVAL);
            return;
        }
        const qint64 milliseconds = date.toMSecsSinceEpoch();
        const qint64 remainder = ((milliseconds % 1000) + 1000) % 1000;
        const qint64 seconds = (milliseconds - remainder) / 1000;
        const std::array<timespec, 2> times = {
            timespec{0, UTIME_OMIT}, timespec{static_cast<time_t>(seconds), remainder * 1'000'000}};
        if (::futimens(m_descriptor, times.data()) != 0) {
            note(errno);
            return;
        }
        // Dates that the file system cannot hold are moved to its ends without a word; every one in
        // use holds those from 1970 to 2038.
        struct stat status = {};
        if ((seconds < 0 || seconds > INT32_MAX) && ::fstat(m_descriptor, &status) == 0 &&
            status.st_mtim.tv_sec != seconds)
            note(EOVERFLOW);
    }

    void setHiddenExtension(bool isHidden)
    {
        QByteArray info = oldValue(attributes::finderInfo).value_or(QByteArray());
        if (info.isEmpty() && !isHidden)
            return;
        info = info.leftJustified(attributes::finderInfoLength, '\0');
        char* const flags = info.data() + attributes::finderFlagsOffset;
        const quint16 others =
            qFromBigEndian<quint16>(flags) & quint16(~attributes::hiddenExtensionFlag);
        qToBigEndian<quint16>(isHidden ? others | attributes::hiddenExtensionFlag : others, flags);
        setBytes(attributes::finderInfo, info);
    }

    void setTags(const QStringList& tags)
    {
        QStringList colouredTags;
        for (const QString& tag : tags)
            colouredTags += tag + QStringLiteral("\n0"); // no colour
        setBoth(attributes::finderTags, colouredTags, attributes::desktopTags,
                tags.join(QLatin1Char(',')), tags.isEmpty());
    }

    void setComment(const QString& comment)
    {
        setBoth(attributes::finderComment, comment, attributes::desktopComment, comment,
                comment.isEmpty());
    }

    void setOrigin(const QString& url)
    {
        setBoth(attributes::finderOrigins, QStringList{url}, attributes::desktopOrigin, url,
                url.isEmpty());
    }

private:
    void setBoth(const char* finderName, const QVariant& value, const char* desktopName,
                 const QString& text, bool isRemoval)
    {
        if (isRemoval) {
            note(attributes::removeValue(m_descriptor, finderName));
            note(attributes::removeValue(m_descriptor, desktopName));
            return;
        }
        setPropertyList(finderName, value);
        setBytes(desktopName, text.toUtf8());
    }

    [[nodiscard]] std::optional<QByteArray> oldValue(const char* name) const
    {
        return m_hasAttributes ? attributes::value(m_descriptor, name) : std::nullopt;
    }

    // Looking costs a tenth of writing, and a note is stamped again when it is imported.
    void setBytes(const char* name, const QByteArray& bytes)
    {
        if (oldValue(name) != bytes)
            note(attributes::setValue(m_descriptor, name, bytes));
    }

    void setPropertyList(const char* name, const QVariant& value)
    {
        Error error;
        const auto bytes = propertyListData(value, PropertyListFormat::Binary, &error);
        if (bytes)
            setBytes(name, *bytes);
        else if (!m_failure)
            m_failure = error;
    }

    void note(int systemError)
    {
        if (systemError == 0 || m_failure)
            return;
        if (systemError == ENOTSUP) {
            m_failure =
                Error(cocoaErrorDomain, FileWriteUnknownError,
                      localizedString("The file system of \u201c%1\u201d keeps no attributes.")
                          .arg(m_path))
                    .withUnderlyingError(Error(posixErrorDomain, systemError));
        } else if (systemError == E2BIG || systemError == ERANGE || systemError == ENOSPC) {
            // A full disk also reads ENOSPC, but far more often it is the room for one file's
            // attributes.
            m_failure =
                Error(cocoaErrorDomain, FileWriteOutOfSpaceError,
                      localizedString(
                          "The attributes of \u201c%1\u201d are too large for its file system.")
                          .arg(m_path))
                    .withUnderlyingError(Error(posixErrorDomain, systemError));
        } else {
            m_failure = fileError(FileAccess::Write, m_path, systemError);
        }
    }

    QString m_path;
    int m_descriptor;
    bool m_hasAttributes; // before anything is set
    std::optional<Error> m_failure;
};

} // namespace

bool setResourceValues(const QString& path, const ResourceValues& values, Error* error)
{
    const auto native = system::nativePath(path);
    system::Descriptor file;
    if (native)
        file = system::open(*native, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    if (!file.isOpen()) {
        setError(error, fileError(FileAccess::Write, path, native ? errno : EINVAL));
        return false;
    }

    ValueSetting setting(path, file.number());
    if (values.creationDate)
        setting.setCreationDate(*values.creationDate);
    if (values.hasHiddenExtension)
        setting.setHiddenExtension(*values.hasHiddenExtension);
    if (values.tagNames)
        setting.setTags(*values.tagNames);
    if (values.comment)
        setting.setComment(*values.comment);
    if (values.originUrl)
        setting.setOrigin(*values.originUrl);
    if (values.contentModificationDate)
        setting.setModificationDate(*values.contentModificationDate);
    if (!setting.failure())
        return true;
    setError(error, *setting.failure());
    return false;
}

} // namespace platform
