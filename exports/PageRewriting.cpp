// SPDX-License-Identifier: MIT
#include "exports/PageRewriting.h"

#include "foundation/FileNameFitting.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"
#include "platform/types/UniformTypes.h"

using platform::Error;

namespace {

// A note that holds the names of a hundred numbered attachments means to.
constexpr int mostNumbers = 100;

QString percentEncoded(const QString& name)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(name));
}

QString typeOf(const EvernoteXMLResource& resource)
{
    return resource.mime().isEmpty()
               ? platform::preferredIdentifierForExtension(
                     platform::pathExtension(resource.attributes().filename()))
               : platform::preferredIdentifierForMimeType(resource.mime());
}

} // namespace

PageRewriting::PageRewriting(const EvernoteXMLNote& note, const QUrl& resourcesFolder,
                             const QString& text)
    : ENMLRewriting(note, resourcesFolder, ImageSource::RelativeAddress)
    , m_note(note)
    , m_resourcesFolder(resourcesFolder.toLocalFile())
    // As it is laid out: white space of any length is one blank.
    , m_text(text.simplified())
{
}

std::optional<QString> PageRewriting::markupForAttachment(EvernoteXMLResource& resource,
                                                          const QString& wantedName)
{
    const QString type = typeOf(resource);
    const QString name = harmlessName(wantedName, type);
    if (!resource.writeToURL(QUrl::fromLocalFile(m_resourcesFolder + QLatin1Char('/') + name)))
        return std::nullopt;
    if (platform::typeConformsTo(type, platform::utTypeImage))
        return QStringLiteral("<img src=\"%1\"/>").arg(addressOf(name).toHtmlEscaped());
    return markupForFile(name);
}

bool PageRewriting::writeUnshownAttachments(Error* error)
{
    for (const std::shared_ptr<EvernoteXMLResource>& resource : m_note.resources()) {
        const std::optional<QString> hash = resource->md5Hash();
        if (hash && shownHashes().contains(*hash))
            continue;
        const QString path = m_resourcesFolder + QLatin1Char('/') +
                             harmlessName(resource->attributes().filename(), typeOf(*resource));
        const QByteArray bytes = resource->getContentData().value_or(QByteArray());
        if (!platform::writeFile(path, bytes, platform::WriteOption::Plain, error))
            return false;
    }
    return true;
}

QString PageRewriting::fileNameFor(const EvernoteXMLResource& resource, const QString& type)
{
    const QString& name = resource.attributes().filename();
    return harmlessName(name.isEmpty() ? resource.identifier() : name, type);
}

QString PageRewriting::harmlessName(const QString& wanted, const QString& type)
{
    // Blanks would be collapsed where the page shows the name.
    QString base = fileNameFromTitle(wanted.simplified());
    if (base.isEmpty())
        base = QStringLiteral("Attachment");
    QString extension = platform::pathExtension(base);
    if (extension.isEmpty())
        extension = platform::preferredExtensionForType(type).value_or(QString());
    else
        base = platform::stringByDeletingPathExtension(base);
    if (!extension.isEmpty())
        extension.prepend(QLatin1Char('.'));
    QString name = base + extension;
    for (int number = 1; number <= mostNumbers && m_text.contains(name); ++number)
        name = base + QLatin1Char(' ') + QString::number(number) + extension;
    name = freeFileName(name);
    m_text += QLatin1Char('\n') + name;
    return name;
}

QString PageRewriting::addressOf(const QString& fileName) const
{
    const QString address = percentEncoded(platform::lastPathComponent(m_resourcesFolder)) +
                            QLatin1Char('/') + percentEncoded(fileName);
    // What begins so is taken for an address on the web.
    return address.startsWith(QLatin1String("http")) ? QStringLiteral("./") + address : address;
}

QString PageRewriting::markupForFile(const QString& fileName) const
{
    // As the text it is looked for, whatever the letters round it are turned into.
    return QStringLiteral("<a href=\"%1\" style=\"text-transform:none\">%2</a>")
        .arg(addressOf(fileName), fileName.toHtmlEscaped());
}
