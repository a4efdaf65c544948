// SPDX-License-Identifier: MIT
#include "import/EvernoteXMLFileExportOperation.h"

#include "convert/EvernoteXMLItem.h"
#include "enex/EvernoteXMLErrors.h"
#include "enex/EvernoteXMLParseOperation.h"
#include "foundation/BMXLogManager.h"
#include "import/RecordDescription.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"

#include <cstdio>

using platform::Error;
using platform::manifest::Record;
namespace manifest = platform::manifest;

EvernoteXMLFileExportOperation::EvernoteXMLFileExportOperation() = default;
EvernoteXMLFileExportOperation::~EvernoteXMLFileExportOperation() = default;

void EvernoteXMLFileExportOperation::main()
{
    Error error;
    const std::optional<QString> identifier = getQuilleryApplicationBundleIdentifier(&error);
    if (!identifier || !prepareToExportWithAppIdentifier(*identifier, &error)) {
        informDelegateDidEncounterError(error);
        return;
    }
    countNotes();
}

void EvernoteXMLFileExportOperation::countNotes()
{
    m_noteCount = 0;
    const std::unique_ptr<platform::InputStream> stream = platform::InputStream::inputStreamWithURL(m_exportFileURL);
    if (!stream) {
        countingDidFail({evernoteXMLParseOperationErrorDomain, EvernoteXMLParseOperationErrorNoInputStream,
                         platform::localizedString("Cannot create input stream.")});
        return;
    }
    m_xmlParser = std::make_unique<platform::XMLParser>(*stream);
    m_xmlParser->setDelegate(this);
    const bool parsed = m_xmlParser->parse();
    // A file that cannot even be opened is no event of the reader's.
    if (!parsed && !m_countingFailed)
        countingDidFail(m_xmlParser->parserError());
    m_xmlParser = nullptr;
}

void EvernoteXMLFileExportOperation::parserDidEndElement(platform::XMLParser&, const QString& name)
{
    if (name == QLatin1String("note"))
        ++m_noteCount;
}

void EvernoteXMLFileExportOperation::parserParseErrorOccurred(platform::XMLParser& parser, const Error& error)
{
    countingDidFail(error);
    parser.abortParsing();
}

void EvernoteXMLFileExportOperation::countingDidFail(const Error& error)
{
    m_countingFailed = true;
    std::fprintf(stderr, "Error counting notes: %s\n", error.description().toUtf8().constData());
    BMXLogManager::sharedManager().restoreStandardError();
    informDelegateDidEncounterError(error);
}

void EvernoteXMLFileExportOperation::parserDidEndDocument(platform::XMLParser&) { startExport(); }

void EvernoteXMLFileExportOperation::startExport()
{
    const QString path = m_exportFileURL.toLocalFile();
    log(QStringLiteral("Exporting notes from ") + path);
    m_report.notes = m_noteCount;
    const QString name = platform::stringByDeletingPathExtension(platform::lastPathComponent(path));
    QString folderPath;
    Error failure;
    const Record folder = makeNotebookFolder(name, &folderPath, &failure);
    if (!folder) {
        logUnableToCreate(folderPath, failure);
        BMXLogManager::sharedManager().restoreStandardError();
        informDelegateDidEncounterError(directoryError());
        return;
    }
    informDelegate([this](EvernoteExportOperationDelegate& delegate) {
        delegate.exportOperationWillExportRecordsFromFileAtURL(*this, m_noteCount, m_exportFileURL);
    });
    startParse(folderPath, folder);
}

void EvernoteXMLFileExportOperation::startParse(const QString& folderPath, const Record& folder)
{
    const auto parse = EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(
        m_exportFileURL, QUrl::fromLocalFile(folderPath), folder);
    parse->setItemFactory(&EvernoteXMLItem::make);
    parse->setLogStream(logStream());
    parse->setDebugMode(debugMode());
    // The blocks keep the run alive for as long as the parse has something to tell it.
    const auto self = std::static_pointer_cast<EvernoteXMLFileExportOperation>(shared_from_this());
    parse->setParseOperationDidExportItemBlock(
        [self, operation = parse.get()](const Record& record, const std::optional<Error>& error) {
            self->didExportItem(operation->currentItem(), record, error);
        });
    parse->setParseOperationCompletionBlock([self, folder](const std::optional<Error>& error) {
        if (!error)
            self->libraryPlist()->addItems(self->m_notebookItemDicts, folder);
        self->exportDidEnd(error);
    });
    m_parserQueue.addOperation(parse);
}

void EvernoteXMLFileExportOperation::didExportItem(const EvernoteXMLNote* note, const Record& record,
                                                   const std::optional<Error>& error)
{
    const QString title = note ? note->title() : QString();
    if (record) {
        log(QStringLiteral("Exported item: %1 (%2)")
                .arg(record->value(manifest::nameKey).toString(), record->value(manifest::identifierKey).toString()));
        if (debugMode())
            log(recordDescription(record));
        m_notebookItemDicts.append(record);
        ++m_report.items;
    } else {
        log(QStringLiteral("Error exporting item: ") + (error ? error->description() : QStringLiteral("(null)")));
        m_report.skipped.push_back({title, error ? error : note ? note->withheldError() : std::nullopt});
    }
    if (note) {
        for (const QString& warning : note->warnings())
            m_report.warnings.push_back({title, warning});
    }
    informDelegateDidExportRecord();
}

void EvernoteXMLFileExportOperation::exportDidEnd(const std::optional<Error>& error)
{
    if (error) {
        stopRun(error);
        return;
    }
    log(QStringLiteral("*** Export ended for: ") + m_exportFileURL.toLocalFile());
    finishRun();
}
