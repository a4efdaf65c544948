// SPDX-License-Identifier: MIT
//
// The files that an EvernoteXMLItem can become.
#include "convert/ENMLRewriting.h"
#include "convert/EvernoteXMLItem.h"
#include "convert/NoteDocument.h"
#include "convert/WebClip.h"
#include "formats/QLNoteFileConstants.h"
#include "foundation/FileNameFitting.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"
#include "platform/types/UniformTypes.h"

using platform::Error;
using platform::localizedString;
using platform::XMLElement;
using platform::manifest::Record;
namespace manifest = platform::manifest;

namespace {

// The single attachment's file name: the note's title with the attachment's extension.
QString singleResourceName(const QString& title, const EvernoteXMLResource& resource)
{
    const QString& filename = resource.attributes().filename();
    const QString extension = platform::pathExtension(filename);
    // A note without a title would give a name that begins with a dot, which hides the file.
    const QString shownTitle = title.isEmpty() ? localizedString("Untitled") : title;
    QString name = extension.isEmpty() ? filename : shownTitle + QLatin1Char('.') + extension;
    if (!name.isEmpty())
        return name;
    name = localizedString("Untitled");
    if (!resource.mime().isEmpty()) {
        const QString type = platform::preferredIdentifierForMimeType(resource.mime());
        if (const std::optional<QString> preferred = platform::preferredExtensionForType(type))
            name += QLatin1Char('.') + *preferred;
    }
    return name;
}

// The name of a file of the note's own; a note without a title is kept under a name that shows.
QString fileName(const QString& title, const QString& extension)
{
    const QString name = fileNameFromTitle(title);
    return (name.isEmpty() ? localizedString("Untitled") : name) + QLatin1Char('.') + extension;
}

} // namespace

bool EvernoteXMLItem::processSingleResource(const Record& record, Error* error)
{
    EvernoteXMLResource& resource = *resources().front();
    const EvernoteXMLItemType type = resource.itemType();
    const QString folder = targetFolderForType(type);
    const QString name
        = freeFileNameInDirectoryAtURL(singleResourceName(title(), resource), QUrl::fromLocalFile(folder));
    const std::optional<QString> path = platform::pathWithin(folder, name, error);
    if (!path || !resource.writeToURL(QUrl::fromLocalFile(*path), error))
        return false;
    record->insert(manifest::itemTypeKey, type);
    record->insert(manifest::filenameKey, name);
    record->insert(manifest::absoluteFilenameKey, *path);
    setAttributesOnFile(QUrl::fromLocalFile(*path));
    return true;
}

std::optional<QString> EvernoteXMLItem::XHTMLStringFromNoteElement(const XMLElement& element, Error* error)
{
    return ENMLRewriting(*this, m_intermediateHTMLDirectoryURL).xhtmlString(element, error);
}

std::optional<QString> EvernoteXMLItem::noteXHTMLStringFromNoteElement(const XMLElement& element, Error* error)
{
    ENMLRewriting rewriting(*this, m_intermediateHTMLDirectoryURL);
    std::optional<QString> page = rewriting.noteXHTMLString(element, error);
    if (page) {
        for (const QString& warning : rewriting.warnings())
            addWarning(warning);
        m_pageFileNames = rewriting.fileNames();
    }
    return page;
}

void EvernoteXMLItem::warnOfHiddenAttachments(const platform::AttributedString& text)
{
    const QSet<QString> shown = NoteDocument::attachedFileNames(text);
    for (const QString& name : std::as_const(m_pageFileNames)) {
        if (!shown.contains(name)) {
            addWarning(localizedString("The attachment “%1” stands where the note shows nothing; it was left out.")
                           .arg(name));
        }
    }
}

std::optional<QUrl> EvernoteXMLItem::createNoteForElement(const XMLElement& element, Error* error)
{
    const std::optional<QString> page = noteXHTMLStringFromNoteElement(element, error);
    if (!page)
        return std::nullopt;
    const QString scratch = m_intermediateHTMLDirectoryURL.toLocalFile();
    const QString pagePath = scratch + QLatin1Char('/') + identifier() + QStringLiteral(".html");
    if (!platform::writeFile(pagePath, page->toUtf8(), platform::WriteOption::Plain, error))
        return std::nullopt;
    Error pageError;
    platform::AttributedString text = NoteDocument::textOfPage(pagePath, &pageError);
    if (!pageError.isNull()) {
        addWarning(localizedString("The note's text could not be laid out and is missing: %1")
                       .arg(pageError.localizedDescription()));
    }
    if (!NoteDocument::replaceAttachmentMarkers(text, scratch, error))
        return std::nullopt;
    warnOfHiddenAttachments(text);
    // Clashes are looked for at the top of the import folder, wherever the file goes.
    const QString name = freeFileNameInDirectoryAtURL(fileName(title(), qlNoteFileExtension), directoryURL());
    const std::optional<QString> path
        = platform::pathWithin(targetFolderForType(EvernoteXMLItemTypeNote), name, error);
    if (!path || !NoteDocument::writeNoteFile(text, *path, error))
        return std::nullopt;
    return QUrl::fromLocalFile(*path);
}

std::optional<QUrl> EvernoteXMLItem::createWebArchiveForElement(const XMLElement& element, bool refreshingFromWeb,
                                                                Error* error)
{
    WebClip clip(*this, m_intermediateHTMLDirectoryURL);
    const std::optional<QByteArray> archive
        = refreshingFromWeb ? clip.archiveFromWeb(error) : clip.archiveFromNoteElement(element, error);
    if (!archive)
        return std::nullopt;
    for (const QString& warning : clip.warnings())
        addWarning(warning);
    // As for notes, clashes are looked for at the top of the import folder alone.
    const QString name = freeFileNameInDirectoryAtURL(fileName(title(), WebClip::fileExtension), directoryURL());
    const std::optional<QString> path
        = platform::pathWithin(targetFolderForType(EvernoteXMLItemTypeWebPage), name, error);
    if (!path || !platform::writeFile(*path, *archive, platform::WriteOption::Plain, error))
        return std::nullopt;
    return QUrl::fromLocalFile(*path);
}
