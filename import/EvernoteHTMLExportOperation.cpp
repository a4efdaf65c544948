// SPDX-License-Identifier: MIT
#include "import/EvernoteHTMLExportOperation.h"

#include "foundation/FileNameFitting.h"
#include "import/ExportErrors.h"
#include "import/RecordDescription.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/Uuid.h"
#include "platform/dbus/ScriptingError.h"
#include "platform/files/FileManager.h"
#include "platform/files/ResourceValues.h"
#include "platform/types/UniformTypes.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

using platform::Error;
using platform::EvernoteApplication;
using platform::localizedString;
using platform::manifest::Record;
namespace manifest = platform::manifest;

struct EvernoteHTMLExportOperation::NotebookPlaces {
    QString notebookFolder;
    // Where the application writes its pages.
    QString htmlFolder;
    Record folder;
};

namespace {

EvernoteXMLItemType itemTypeOfFile(const QString& path)
{
    const QString extension = platform::pathExtension(path);
    const QString type = extension.isEmpty() ? QStringLiteral("public.data")
                                             : platform::preferredIdentifierForExtension(extension);
    const EvernoteXMLItemType itemType = itemTypeForUniformType(type);
    if (itemType == EvernoteXMLItemTypeDocument)
        std::fprintf(stderr, "Defaulting to document type: %s\n", type.toUtf8().constData());
    return itemType;
}

// Whoever does not answer for one note answers for none; that is no matter of the note.
bool isApplicationLost(const Error& error)
{
    using Code = platform::ScriptingErrorCode;
    if (error.domain() != QLatin1String(platform::scriptingErrorDomain))
        return false;
    const auto code = static_cast<Code>(error.code());
    return code != Code::Refused && code != Code::UnsendableArgument;
}

QString tagsStringOf(platform::EvernoteNote& note)
{
    QStringList tags = note.tags();
    tags.removeAll(QString());
    return tags.join(QLatin1Char(','));
}

} // namespace

void EvernoteHTMLExportOperation::performExportForNotebook(const Notebook& notebook,
                                                           const QString& toNotebookFilesPath,
                                                           const Record& targetFolder)
{
    const NotebookPlaces places{toNotebookFilesPath, toNotebookFilesPath + QStringLiteral("/HTML"),
                                targetFolder};
    Error error;
    if (!platform::createDirectory(places.htmlFolder, platform::IntermediateFolders::Create,
                                   &error)) {
        exportNotebookDidEnd(notebook, error);
        return;
    }
    const std::optional<Notes> notes = fetchNotes(notebook, &error);
    if (!notes) {
        exportNotebookDidEnd(notebook, error);
        return;
    }
    ItemRecordList items;
    for (const Note& note : *notes) {
        if (isCancelled()) {
            exportNotebookDidEnd(notebook,
                                 Error(evernoteExportErrorDomain, EvernoteExportErrorCancelled));
            return;
        }
        const std::optional<QString> page = exportPage(note, places, &error);
        if (!page && isApplicationLost(error)) {
            exportNotebookDidEnd(notebook, error);
            return;
        }
        if (!page) {
            skip(note->title(), error);
            continue;
        }
        if (const Record record = recordOfExportedNote(note, *page, places)) {
            if (const QString tags = tagsStringOf(*note); !tags.isEmpty())
                record->insert(manifest::tagsStringKey, tags);
            items.append(record);
            ++m_report.items;
        }
        informDelegateDidExportRecord();
    }
    libraryPlist()->addItems(items, targetFolder);
    exportNotebookDidEnd(notebook, std::nullopt);
}

std::optional<QString> EvernoteHTMLExportOperation::exportPage(const Note& note,
                                                               const NotebookPlaces& places,
                                                               Error* error)
{
    const QString title = note->title();
    log(QStringLiteral("Exporting note with title: ") + title);
    QString name = fileNameFromTitle(title);
    if (name.isEmpty())
        name = localizedString("Untitled");
    name = m_freeNames.freeName(name + QStringLiteral(".html"),
                                QUrl::fromLocalFile(places.htmlFolder));
    const QString exportPath = places.htmlFolder + QLatin1Char('/') + name;
    *error = Error(evernoteExportErrorDomain, EvernoteExportErrorNoteNotExported,
                   localizedString("Evernote did not export this note."));
    // What became of it shows in the folder.
    static_cast<void>(evernoteApp() && evernoteApp()->exportNotes(
                                           {note}, exportPath, EvernoteApplication::ExportTags::No,
                                           EvernoteApplication::ExportFormat::HTML, error));
    log(QStringLiteral("Converting file to note: ") + name);
    const QStringList entries =
        QDir(exportPath)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    for (const QString& entry : entries) {
        if (platform::pathExtension(entry) != QLatin1String("html"))
            continue;
        for (const QString& warning : evernoteApp()->lastExportWarnings())
            m_report.warnings.push_back({title, warning});
        return exportPath + QLatin1Char('/') + entry;
    }
    log(QStringLiteral("Cannot convert note because exported file not found: ") + title);
    return std::nullopt;
}

Record EvernoteHTMLExportOperation::recordOfExportedNote(const Note& note, const QString& htmlFile,
                                                         const NotebookPlaces& places)
{
    const QString htmlName = platform::lastPathComponent(htmlFile);
    bool isSingleAttachment = false;
    QUrl attachment;
    Error error;
    if (!exportedNoteAtPath(htmlFile, &isSingleAttachment, &attachment, &error)) {
        log(QStringLiteral("Couldn't check for attachment in exported file %1: %2")
                .arg(htmlName, error.isNull() ? QStringLiteral("(null)") : error.description()));
        isSingleAttachment = false;
    }
    error = {};
    Record record;
    if (isSingleAttachment) {
        const QString file = attachment.toLocalFile();
        record = exportNoteOfItemItemAtAttachmentFile(note, itemTypeOfFile(file), file,
                                                      places.notebookFolder, places.folder, &error);
    } else {
        record = exportNoteAtHTMLFile(note, htmlFile, places.notebookFolder, places.folder, &error);
    }
    if (!record) {
        log(QStringLiteral("Skipping item %1: %2").arg(htmlName, error.description()));
        skip(note->title(), error);
    }
    return record;
}

Record EvernoteHTMLExportOperation::exportNoteOfItemItemAtAttachmentFile(
    const Note& note, EvernoteXMLItemType itemType, const QString& attachmentFile, const QString&,
    const Record& folder, Error*)
{
    const QString name = platform::lastPathComponent(attachmentFile);
    if (debugMode())
        log(QStringLiteral("Updating dates on file: ") + name);
    setDates(note, attachmentFile, false);
    if (debugMode())
        log(QStringLiteral("Creating attachment record"));
    const QString identifier = platform::newUuidString();
    log(QStringLiteral("Assigning identifier %1 to file %2").arg(identifier, name));
    const Record record = newRecord(note, identifier, itemType, attachmentFile, folder);
    if (debugMode())
        log(QStringLiteral("Created PDF record:\n") + recordDescription(record));
    ++m_report.counts.resources;
    ++m_report.counts.shownResources;
    return record;
}

void EvernoteHTMLExportOperation::setDates(const Note& note, const QString& path,
                                           bool hidesExtension)
{
    platform::ResourceValues values;
    if (const QDateTime created = note->creationDate(); created.isValid())
        values.creationDate = created;
    if (const QDateTime modified = note->modificationDate(); modified.isValid())
        values.contentModificationDate = modified;
    if (hidesExtension)
        values.hasHiddenExtension = true;
    // A file system that does not keep them still has the file.
    static_cast<void>(platform::setResourceValues(path, values));
}

Record EvernoteHTMLExportOperation::newRecord(const Note& note, const QString& identifier,
                                              EvernoteXMLItemType itemType, const QString& path,
                                              const Record& folder)
{
    const QString fileName = platform::lastPathComponent(path);
    Record record = manifest::makeRecord();
    record->insert(manifest::entityNameKey, manifest::itemEntity);
    record->insert(manifest::itemTypeKey, itemType);
    record->insert(manifest::identifierKey, identifier);
    record->insert(manifest::absoluteFilenameKey, path);
    record->insert(manifest::filenameKey, fileName);
    record->insert(manifest::nameKey, platform::stringByDeletingPathExtension(fileName));
    record->insert(manifest::extensionHiddenKey, true);
    record->insert(manifest::folderKey, folder->value(manifest::identifierKey));
    // An empty address is an answer, too.
    if (const QString source = note->sourceURL(); !source.isNull())
        record->insert(manifest::commentsKey, source);
    return record;
}

void EvernoteHTMLExportOperation::skip(const QString& title, const Error& error)
{
    m_report.skipped.push_back(
        {title, error.isNull() ? std::nullopt : std::optional<Error>(error)});
}
