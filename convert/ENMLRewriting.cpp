// SPDX-License-Identifier: MIT
#include "convert/ENMLRewriting.h"

#include "convert/AttachmentMarker.h"
#include "convert/ENMLTagReplacement.h"
#include "convert/PageTemplate.h"
#include "formats/ChecklistBoxTexts.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/SystemLog.h"
#include "platform/files/FileManager.h"
#include "platform/types/UniformTypes.h"

using platform::Error;
using platform::localizedString;
using platform::XMLElement;

namespace {

// The name as a relative address. Most names are their own; only what a browser would take for a
// part of an address, for an escape or for nothing at all is escaped.
QString relativeAddress(const QString& fileName)
{
    QString address;
    for (const QChar unit : fileName) {
        const ushort code = unit.unicode();
        const bool isControl = code < 0x20 || code == 0x7F;
        if (isControl || QStringView(u"%#?:\\").contains(unit))
            address += QLatin1Char('%') +
                       QStringLiteral("%1").arg(code, 2, 16, QLatin1Char('0')).toUpper();
        else
            address += unit;
    }
    // Blanks are dropped at the ends alone.
    if (address.startsWith(u' ') || address.endsWith(u' '))
        address.replace(u' ', QLatin1String("%20"));
    return address;
}

} // namespace

ENMLRewriting::ENMLRewriting(const EvernoteXMLNote& note, const QUrl& folder,
                             ImageSource imageSource)
    : m_note(note)
    , m_folder(folder)
    , m_imageSource(imageSource)
{
}

std::optional<QString> ENMLRewriting::xhtmlString(const XMLElement& noteElement, Error* error)
{
    QString markup = noteElement.xmlString();
    markup.remove(QStringLiteral("<en-note>"));
    markup.remove(QStringLiteral("</en-note>"));
    const ENMLTagReplacement media{
        QStringLiteral("<en-media "), QStringLiteral("/>"), QStringLiteral("</en-media>"),
        localizedString("Invalid media tag."), [this](const XMLElement& tag, Error* tagError) {
            return replacementForMedia(tag, tagError);
        }};
    return media.applyTo(markup, error);
}

std::optional<QString> ENMLRewriting::noteXHTMLString(const XMLElement& noteElement, Error* error)
{
    const std::optional<QString> body = noteBodyString(noteElement, error);
    return body ? pageFromTemplate(m_note.title(), *body, error) : std::nullopt;
}

std::optional<QString> ENMLRewriting::noteBodyString(const XMLElement& noteElement, Error* error)
{
    std::optional<QString> body = xhtmlString(noteElement, error);
    if (!body)
        return std::nullopt;
    const ENMLTagReplacement todo{
        QStringLiteral("<en-todo"),
        QStringLiteral("/en-todo>"),
        {},
        localizedString("Invalid todo tag."),
        [](const XMLElement& tag, Error*) {
            const bool checked = tag.attribute(u"checked") == QLatin1String("true");
            return checked ? checklist::checkedBoxText : checklist::uncheckedBoxText;
        }};
    body = todo.applyTo(*body, error);
    if (!body)
        return std::nullopt;
    const ENMLTagReplacement crypt{QStringLiteral("<en-crypt"),
                                   QStringLiteral("</en-crypt>"),
                                   {},
                                   localizedString("Invalid crypt tag."),
                                   [this](const XMLElement&, Error*) {
                                       ++m_encryptedPassages;
                                       return QStringLiteral("********");
                                   }};
    return crypt.applyTo(*body, error);
}

std::optional<QString> ENMLRewriting::replacementForMedia(const XMLElement& tag, Error* error)
{
    const std::shared_ptr<EvernoteXMLResource> resource = resourceWithHash(tag.attribute(u"hash"));
    if (!resource) {
        ++m_missingAttachments;
        return localizedString("[Missing Attachment]");
    }
    m_shownHashes.insert(*tag.attribute(u"hash"));
    const QString mime = tag.attribute(u"type").value_or(resource->mime());
    const QString type = platform::preferredIdentifierForMimeType(mime);
    const QString name = fileNameFor(*resource, type);
    const std::optional<QString> path = platform::pathWithin(m_folder.toLocalFile(), name, error);
    if (!path || !resource->writeToURL(QUrl::fromLocalFile(*path), error))
        return std::nullopt;
    m_files.insert(name, *tag.attribute(u"hash"));
    if (!platform::typeConformsTo(type, QStringLiteral("public.image")))
        return markupForFile(name);
    XMLElement image = XMLElement::create(QStringLiteral("img"));
    for (const QStringView dimension : {QStringView(u"width"), QStringView(u"height")}) {
        if (const std::optional<QString> value = tag.attribute(dimension))
            image.setAttribute(dimension, *value);
    }
    image.setAttribute(u"src", addressOf(name));
    return image.xmlString();
}

QString ENMLRewriting::addressOf(const QString& fileName) const
{
    return m_imageSource == ImageSource::FileName ? fileName : relativeAddress(fileName);
}

QString ENMLRewriting::markupForFile(const QString& fileName) const
{
    // Escaped for the page, so that the name comes out of it as it is. A carriage return written as
    // itself would be read as a line feed.
    const QString escaped =
        fileName.toHtmlEscaped().replace(QLatin1Char('\r'), QLatin1String("&#13;"));
    return QStringLiteral("%1 %2 %3").arg(attachmentmarker::head, escaped, attachmentmarker::tail);
}

std::shared_ptr<EvernoteXMLResource>
ENMLRewriting::resourceWithHash(const std::optional<QString>& hash)
{
    if (!hash)
        return nullptr;
    if (!m_resources) {
        m_resources.emplace();
        for (const auto& resource : m_note.resources()) {
            Error hashError;
            const std::optional<QString> resourceHash = resource->md5Hash(&hashError);
            if (!resourceHash)
                platform::systemLog(
                    QStringLiteral("Couldn't get hash: %1").arg(hashError.description()));
            else if (!m_resources->contains(*resourceHash))
                m_resources->insert(*resourceHash, resource);
        }
    }
    return m_resources->value(*hash);
}

QString ENMLRewriting::fileNameFor(const EvernoteXMLResource& resource, const QString& type)
{
    QString name = resource.attributes().filename();
    if (name.isEmpty()) {
        name = resource.identifier();
        if (const std::optional<QString> extension = platform::preferredExtensionForType(type))
            name += QLatin1Char('.') + *extension;
    }
    return freeFileName(name);
}

QStringList ENMLRewriting::bodyWarnings() const
{
    QStringList texts;
    if (m_missingAttachments > 0) {
        texts += localizedString("Attachments that the note shows but the file does not hold: %1.")
                     .arg(m_missingAttachments);
    }
    if (m_encryptedPassages > 0) {
        texts +=
            localizedString(
                "Encrypted passages, which cannot be read: %1. Asterisks stand in their place.")
                .arg(m_encryptedPassages);
    }
    return texts;
}

QStringList ENMLRewriting::warnings() const
{
    QStringList texts = bodyWarnings();
    for (const auto& resource : m_note.resources()) {
        const std::optional<QString> hash = resource->md5Hash();
        if (!hash || !m_shownHashes.contains(*hash)) {
            const QString& name = resource->attributes().filename();
            texts += localizedString(
                         "The note's text does not show the attachment “%1”; it was left out.")
                         .arg(name.isEmpty() ? resource->mime() : name);
        }
    }
    return texts;
}
