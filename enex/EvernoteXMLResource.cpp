// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLResource.h"

#include "enex/Base64Text.h"
#include "enex/EvernoteXMLErrors.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/Uuid.h"
#include "platform/files/FileManager.h"
#include "platform/types/UniformTypes.h"

#include <QCryptographicHash>

#include <array>

#include <openssl/evp.h>

using platform::Error;
using platform::localizedString;
using platform::setError;

namespace {

QByteArray md5Digest(const QByteArray& bytes)
{
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest;
    unsigned int size = 0;
    if (EVP_Digest(bytes.constData(), static_cast<std::size_t>(bytes.size()), digest.data(), &size, EVP_md5(), nullptr)
        != 1) {
        // A machine whose policy switches MD5 off for cryptography; here it is only a name.
        return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
    }
    return {reinterpret_cast<const char*>(digest.data()), static_cast<qsizetype>(size)};
}

} // namespace

EvernoteXMLResource::EvernoteXMLResource()
    : m_identifier(platform::newUuidString())
{
}

std::optional<QByteArray> EvernoteXMLResource::getContentData(Error* error)
{
    if (m_contentData)
        return m_contentData;
    if (m_base64Data.isEmpty()) {
        setError(error, Error(evernoteXMLResourceErrorDomain, EvernoteXMLResourceErrorNoData,
                              localizedString("No content data for resource.")));
        return std::nullopt;
    }
    m_contentData = bytesFromBase64Text(m_base64Data);
    if (!m_contentData) {
        setError(error, Error(evernoteXMLResourceErrorDomain, EvernoteXMLResourceErrorInvalidData,
                              localizedString("Invalid content data for resource.")));
    }
    return m_contentData;
}

std::optional<QString> EvernoteXMLResource::md5Hash(Error* error)
{
    if (m_md5Hash.isEmpty()) {
        const std::optional<QByteArray> content = getContentData(error);
        if (!content)
            return std::nullopt;
        m_md5Hash = QString::fromLatin1(md5Digest(*content).toHex());
    }
    return m_md5Hash;
}

EvernoteXMLItemType EvernoteXMLResource::itemType() const
{
    QString type;
    if (!m_mime.isEmpty()) {
        type = platform::preferredIdentifierForMimeType(m_mime);
    } else {
        const QString extension = platform::pathExtension(m_attributes.filename());
        if (extension.isEmpty())
            return EvernoteXMLItemTypeDocument;
        type = platform::preferredIdentifierForExtension(extension);
    }
    return itemTypeForUniformType(type);
}

bool EvernoteXMLResource::writeToURL(const QUrl& url, Error* error)
{
    const std::optional<QByteArray> content = getContentData(error);
    return content && platform::writeFile(url.toLocalFile(), *content, platform::WriteOption::Plain, error);
}
