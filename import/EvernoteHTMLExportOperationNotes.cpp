// SPDX-License-Identifier: MIT
//
// Exported pages on their way into note files.
#include "import/EvernoteHTMLExportOperation.h"

#include "convert/NoteDocument.h"
#include "formats/QLNoteFileConstants.h"
#include "foundation/OperationQueueQLExtensions.h"
#include "import/ExportErrors.h"
#include "import/RecordDescription.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/Uuid.h"
#include "platform/htmlimport/HtmlImport.h"
#include "platform/rtfd/RtfdPackage.h"

#include <QDir>
#include <QFileInfo>

using platform::AttributedString;
using platform::Error;
using platform::FileWrapper;
using platform::localizedString;
using platform::TextRange;
using platform::manifest::Record;
namespace manifest = platform::manifest;

namespace {

// The folder beside a page that holds its attachments.
QString resourcesFolderOf(const QString& htmlFile)
{
    return platform::stringByDeletingPathExtension(htmlFile) + QStringLiteral(".resources");
}

// The whole stretch round the position that has the same link.
TextRange linkRangeAt(const AttributedString& text, qsizetype position)
{
    TextRange range;
    const QString link = text.attributesAt(position, &range).link;
    TextRange neighbour;
    while (range.location > 0 && text.attributesAt(range.location - 1, &neighbour).link == link)
        range = {neighbour.location, range.end() - neighbour.location};
    while (range.end() < text.length() && text.attributesAt(range.end(), &neighbour).link == link)
        range.length = neighbour.end() - range.location;
    return range;
}

FileWrapper::Pointer wrapperOfFile(const QString& path, const QString& name)
{
    FileWrapper::Pointer wrapper =
        QFileInfo(path).isDir() ? FileWrapper::read(path) : FileWrapper::fileOnDisk(path);
    if (wrapper)
        wrapper->setPreferredFilename(name);
    return wrapper;
}

} // namespace

Record EvernoteHTMLExportOperation::exportNoteAtHTMLFile(const Note& note, const QString& htmlFile,
                                                         const QString& toDirectory,
                                                         const Record& folder, Error* error)
{
    const QString base =
        platform::stringByDeletingPathExtension(platform::lastPathComponent(htmlFile));
    const QString name = m_freeNames.freeName(base + QLatin1Char('.') + qlNoteFileExtension,
                                              QUrl::fromLocalFile(toDirectory));
    ConversionRequest request;
    request.originalHTMLFilePath = htmlFile;
    request.noteFilePath = toDirectory + QLatin1Char('/') + name;
    request.originalNote = note;
    addOperationWithBlockAndWaitUntilFinished(
        platform::OperationQueue::mainQueue(),
        [this, &request] { convertEvernoteToQuillery(request); });
    m_report.counts += request.success ? request.counts : request.counts.ofSkippedNote();
    if (!request.success) {
        platform::setError(error, request.error);
        return nullptr;
    }
    for (const QString& warning : std::as_const(request.warnings))
        m_report.warnings.push_back({note->title(), warning});
    if (debugMode())
        log(QStringLiteral("Updating dates on file: ") + name);
    setDates(note, request.noteFilePath, true);
    if (debugMode())
        log(QStringLiteral("Creating note record"));
    const QString identifier = identifierOf(note);
    log(QStringLiteral("Assigning identifier %1 to note %2").arg(identifier, note->title()));
    const Record record =
        newRecord(note, identifier, EvernoteXMLItemTypeNote, request.noteFilePath, folder);
    if (debugMode())
        log(QStringLiteral("Created note record:\n") + recordDescription(record));
    return record;
}

QString EvernoteHTMLExportOperation::identifierOf(const Note& note)
{
    const QString link = note->noteLink();
    const QString identifier = platform::lastPathComponent(QUrl(link).path());
    if (link.isEmpty() || identifier.isEmpty())
        return platform::newUuidString();
    const auto earlier = m_titlesByIdentifier.constFind(identifier);
    if (earlier != m_titlesByIdentifier.constEnd()) {
        // The manifest has one item an identifier, the later one.
        --m_report.items;
        skip(*earlier,
             Error(evernoteExportErrorDomain, EvernoteExportErrorNoteReplaced,
                   localizedString("Another note has the same link; only that one was kept.")));
    }
    m_titlesByIdentifier.insert(identifier, note->title());
    return identifier;
}

void EvernoteHTMLExportOperation::convertEvernoteToQuillery(ConversionRequest& request)
{
    const QString htmlName = platform::lastPathComponent(request.originalHTMLFilePath);
    if (debugMode())
        log(QStringLiteral("Opening file: ") + htmlName);
    platform::HtmlImportOptions options = textImportOptions();
    options.baseDirectory = QFileInfo(request.originalHTMLFilePath).path();
    Error failure;
    std::optional<AttributedString> text =
        platform::attributedStringFromHtmlFile(request.originalHTMLFilePath, options, &failure);
    if (!text) {
        log(QStringLiteral("Unable to read file at path %1: %2")
                .arg(request.originalHTMLFilePath, failure.description()));
        request.error = failure;
        return;
    }
    if (debugMode())
        log(QStringLiteral("Opened file: ") + htmlName);
    attachResources(*text, request);
    const FileWrapper::Pointer package = packageOf(*text);
    if (!package) {
        const QString reason = localizedString("Unable to create file wrapper for file at path: %@")
                                   .replace(QLatin1String("%@"), request.originalHTMLFilePath);
        log(reason);
        request.error = Error(evernoteExportErrorDomain, EvernoteExportErrorNoFileWrapper, reason);
        return;
    }
    const QString noteName = platform::lastPathComponent(request.noteFilePath);
    if (debugMode())
        log(QStringLiteral("About to save file: ") + noteName);
    request.success =
        package->writeTo(request.noteFilePath, FileWrapper::WriteMode::Atomic, &failure);
    if (request.success) {
        if (debugMode())
            log(QStringLiteral("Saved file: ") + noteName);
        return;
    }
    request.error = failure;
    log(QStringLiteral("Unable to save file %1: %2").arg(noteName, failure.description()));
}

FileWrapper::Pointer EvernoteHTMLExportOperation::packageOf(const AttributedString& text)
{
    return platform::rtfdFileWrapper(text, {0, text.length()});
}

// The page shows an attachment as a link whose text is the file's name. The first place where the
// name stands is looked at, whatever it is; that a link elsewhere leads to the file does not count.
void EvernoteHTMLExportOperation::attachResources(AttributedString& text,
                                                  ConversionRequest& request)
{
    const QString folder = resourcesFolderOf(request.originalHTMLFilePath);
    // Links are none of the application's; hidden files are the file system's.
    const QStringList names = QDir(folder).entryList(
        QDir::Files | QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : names) {
        const qsizetype position = text.string().indexOf(name);
        if (position < 0)
            continue;
        const QString link = text.attributesAt(position).link;
        if (link.isEmpty() || QUrl(link).fileName(QUrl::FullyDecoded) != name)
            continue;
        if (FileWrapper::Pointer wrapper = wrapperOfFile(folder + QLatin1Char('/') + name, name)) {
            text.replaceCharacters(linkRangeAt(text, position),
                                   AttributedString::withAttachment(
                                       std::make_shared<platform::TextAttachment>(wrapper)));
        }
    }
    const QSet<QString> attached = NoteDocument::attachedFileNames(text);
    request.counts.resources = static_cast<quint64>(names.size());
    for (const QString& name : names) {
        if (attached.contains(name)) {
            ++request.counts.shownResources;
        } else {
            ++request.counts.leftOutResources;
            request.warnings +=
                localizedString(
                    "The note's text does not show the attachment “%1”; it was left out.")
                    .arg(name);
        }
    }
}
