// SPDX-License-Identifier: MIT
//
// The notes of one ENEX file on their way into the manifest, the same for every run that has such a
// file.
#include "convert/EvernoteXMLItem.h"
#include "enex/EvernoteXMLParseOperation.h"
#include "import/EvernoteExportOperation.h"
#include "import/RecordDescription.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/core/LocalizedStrings.h"

using platform::Error;
using platform::manifest::Record;
namespace manifest = platform::manifest;

void EvernoteExportOperation::convertFile(const QUrl& file, const QString& folderPath,
                                          const Record& folder, ItemRecordList& items,
                                          platform::OperationQueue& queue, ConversionEnd didEnd)
{
    const auto parse = EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(
        file, QUrl::fromLocalFile(folderPath), folder);
    parse->setItemFactory(EvernoteXMLItem::factory());
    parse->setLogStream(logStream());
    parse->setDebugMode(debugMode());
    configureParse(*parse);
    // The blocks keep the run alive for as long as the parse has something to tell it.
    const auto self = shared_from_this();
    parse->setParseOperationDidExportItemBlock(
        [self, &items, operation = parse.get()](const Record& record,
                                                const std::optional<Error>& error) {
            self->didExportItem(operation->currentItem(), record, error, items);
        });
    parse->setParseOperationCompletionBlock(
        [self, &items, folder, didEnd = std::move(didEnd)](const std::optional<Error>& error) {
            if (!error)
                self->libraryPlist()->addItems(items, folder);
            didEnd(error);
        });
    queue.addOperation(parse);
}

void EvernoteExportOperation::didExportItem(const EvernoteXMLNote* note, const Record& record,
                                            const std::optional<Error>& error,
                                            ItemRecordList& items)
{
    const QString title = note ? note->title() : QString();
    if (record) {
        if (ImportManifest::removeUnwritableDates(*record)) {
            m_report.warnings.push_back(
                {title, platform::localizedString("A date of the note is damaged and was left out.")});
        }
        log(QStringLiteral("Exported item: %1 (%2)")
                .arg(record->value(manifest::nameKey).toString(),
                     record->value(manifest::identifierKey).toString()));
        if (debugMode())
            log(recordDescription(record));
        items.append(record);
        ++m_report.items;
    } else {
        log(QStringLiteral("Error exporting item: ") +
            (error ? error->description() : QStringLiteral("(null)")));
        m_report.skipped.push_back({title, error  ? error
                                           : note ? note->withheldError()
                                                  : std::nullopt});
    }
    if (note) {
        m_report.counts += record ? note->counts() : note->counts().ofSkippedNote();
        didCount(*note, record);
        for (const QString& warning : note->warnings())
            m_report.warnings.push_back({title, warning});
    }
    didHandleNote(title);
    informDelegateDidExportRecord();
}

void EvernoteExportOperation::configureParse(EvernoteXMLParseOperation& parse)
{
    const platform::UserDefaults& defaults = platform::UserDefaults::standard();
    if (defaults.boolForKey(QStringLiteral("ModernENEX")))
        parse.setFileForm(EvernoteXMLParseOperation::FileForm::Modern);
    if (defaults.boolForKey(QStringLiteral("TimestampsInUTC")))
        parse.setTimeStamps(EvernoteXMLParseOperation::TimeStamps::UTC);
}

void EvernoteExportOperation::didHandleNote(const QString&) {}
void EvernoteExportOperation::didCount(const EvernoteXMLNote&, const Record&) {}
