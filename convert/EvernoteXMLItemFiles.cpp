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

// The name of a file of the note's own; a note without a title is kept under a name that shows.
QString fileName(const QString& title, const QString& extension)
{
    const QString name = fileNameFromTitle(title);
    return (name.isEmpty() ? localizedString("Untitled") : name) + QLatin1Char('.') + extension;
}

} // namespace

QString EvernoteXMLItem::singleResourceName() const
{
    const EvernoteXMLResource& resource = *resources().front();
    const QString& filename = resource.attributes().filename();
    const QString extension = platform::pathExtension(filename);
    // A note without a title would give a name that begins with a dot, which hides the file.
    const QString shownTitle = title().isEmpty() ? localizedString("Untitled") : title();
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

bool EvernoteXMLItem::processSingleResource(const Record& record, Error* error)
{
    EvernoteXMLResource& resource = *resources().front();
    const EvernoteXMLItemType type = resource.itemType();
    const QString folder = targetFolderForType(type);
    const QString name = m_freeNames->freeName(singleResourceName(), QUrl::fromLocalFile(folder));
    const std::optional<QString> path = platform::pathWithin(folder, name, error);
    if (!path || !resource.writeToURL(QUrl::fromLocalFile(*path), error))
        return false;
    record->insert(manifest::itemTypeKey, type);
    record->insert(manifest::filenameKey, name);
    record->insert(manifest::absoluteFilenameKey, *path);
    setAttributesOnFile(QUrl::fromLocalFile(*path));
    return true;
}

std::optional<QString> EvernoteXMLItem::XHTMLStringFromNoteElement(const XMLElement& element,
                                                                   Error* error)
{
    return ENMLRewriting(*this, m_intermediateHTMLDirectoryURL).xhtmlString(element, error);
}

std::optional<QString> EvernoteXMLItem::noteXHTMLStringFromNoteElement(const XMLElement& element,
                                                                       Error* error)
{
    ENMLRewriting rewriting(*this, m_intermediateHTMLDirectoryURL);
    std::optional<QString> page = rewriting.noteXHTMLString(element, error);
    if (page) {
        for (const QString& warning : rewriting.warnings())
            addWarning(warning);
        m_pageFiles = rewriting.files();
        countAttachments(rewriting.shownHashes(), rewriting.missingAttachments());
    }
    return page;
}

void EvernoteXMLItem::countAttachments(const QSet<QString>& shownHashes, quint64 missing)
{
    // What was added to the body is shown by it, too; of a page that was loaded again nothing is.
    counts().keptResources = shownHashes.isEmpty() ? 0 : m_unshownAttachments;
    counts().shownResources = countOfResources(shownHashes) - counts().keptResources;
    counts().missingAttachments = missing;
}

quint64 EvernoteXMLItem::countOfResources(const QSet<QString>& hashes) const
{
    if (hashes.isEmpty())
        return 0;
    const auto isMeant = [&hashes](const std::shared_ptr<EvernoteXMLResource>& resource) {
        const std::optional<QString> hash = resource->md5Hash();
        return hash && hashes.contains(*hash);
    };
    return static_cast<quint64>(std::count_if(resources().begin(), resources().end(), isMeant));
}

bool EvernoteXMLItem::keepHiddenAttachments(platform::AttributedString& text, Error* error)
{
    const QSet<QString> shown = NoteDocument::attachedFileNames(text);
    QSet<QString> shownHashes;
    for (auto file = m_pageFiles.cbegin(); file != m_pageFiles.cend(); ++file) {
        if (shown.contains(file.key()))
            shownHashes.insert(file.value());
    }
    const bool keeps = keepsUnshownAttachments();
    QSet<QString> hiddenHashes;
    for (auto file = m_pageFiles.cbegin(); file != m_pageFiles.cend(); ++file) {
        if (shown.contains(file.key()))
            continue;
        if (!keeps) {
            addWarning(
                localizedString(
                    "The attachment “%1” stands where the note shows nothing; it was left out.")
                    .arg(file.key()));
        } else if (!shownHashes.contains(file.value()) && !hiddenHashes.contains(file.value())) {
            NoteDocument::appendAttachmentMarker(text, file.key());
        }
        if (!shownHashes.contains(file.value()))
            hiddenHashes.insert(file.value());
    }
    const quint64 hidden = std::min(countOfResources(hiddenHashes), counts().shownResources);
    counts().shownResources -= hidden;
    if (!keeps || hiddenHashes.isEmpty())
        return true;
    counts().keptResources += hidden;
    return NoteDocument::replaceAttachmentMarkers(
        text, m_intermediateHTMLDirectoryURL.toLocalFile(), error);
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
    if (!NoteDocument::replaceAttachmentMarkers(text, scratch, error) ||
        !keepHiddenAttachments(text, error))
        return std::nullopt;
    // Clashes are looked for at the top of the import folder, wherever the file goes.
    const QString name =
        m_freeNames->freeName(fileName(title(), qlNoteFileExtension), directoryURL());
    const std::optional<QString> path =
        platform::pathWithin(targetFolderForType(EvernoteXMLItemTypeNote), name, error);
    if (!path || !NoteDocument::writeNoteFile(text, *path, error))
        return std::nullopt;
    return QUrl::fromLocalFile(*path);
}

std::optional<QUrl> EvernoteXMLItem::createWebArchiveForElement(const XMLElement& element,
                                                                bool refreshingFromWeb,
                                                                Error* error)
{
    WebClip clip(*this, m_intermediateHTMLDirectoryURL);
    const std::optional<QByteArray> archive = refreshingFromWeb
                                                  ? clip.archiveFromWeb(error)
                                                  : clip.archiveFromNoteElement(element, error);
    if (!archive)
        return std::nullopt;
    for (const QString& warning : clip.warnings())
        addWarning(warning);
    countAttachments(clip.shownHashes(), clip.missingAttachments());
    if (refreshingFromWeb) {
        // The page has taken the place of the body, and of what stood in it.
        counts().leftOutTasks += std::exchange(counts().taskLines, 0);
        counts().resolvedLinks = 0;
        setLinkedNotes({});
    }
    // As for notes, clashes are looked for at the top of the import folder alone.
    const QString name =
        m_freeNames->freeName(fileName(title(), WebClip::fileExtension), directoryURL());
    const std::optional<QString> path =
        platform::pathWithin(targetFolderForType(EvernoteXMLItemTypeWebPage), name, error);
    if (!path || !platform::writeFile(*path, *archive, platform::WriteOption::Plain, error))
        return std::nullopt;
    return QUrl::fromLocalFile(*path);
}
