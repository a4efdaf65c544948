// SPDX-License-Identifier: MIT
#include "exports/NotesExport.h"

#include "enex/EnexModernizer.h"
#include "enex/EnexWriter.h"
#include "enex/EvernoteXMLParseOperation.h"
#include "exports/ExportsErrors.h"
#include "exports/NotePage.h"
#include "exports/TagDropper.h"
#include "platform/core/StandardDirectories.h"
#include "platform/files/FileManager.h"
#include "platform/xml/XMLParser.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTemporaryFile>

using platform::Error;
using platform::EvernoteApplication;

namespace {

// A hidden name beside the path, which nothing has yet.
QString unfinishedName(const QString& path)
{
    return QFileInfo(path).path() + QStringLiteral("/.export-XXXXXX");
}

bool writeNotes(const std::vector<SelectedNotesStream::Note>& notes, QIODevice& output,
                EvernoteApplication::ExportTags tags, Error* error)
{
    SelectedNotesStream input(notes);
    platform::XMLParser parser(input);
    EnexWriter writer(output);
    TagDropper dropper(writer);
    const bool keepsTags = tags == EvernoteApplication::ExportTags::Yes;
    EnexModernizer modernizer(keepsTags ? static_cast<platform::XMLParserDelegate&>(writer)
                                        : dropper);
    parser.setDelegate(&modernizer);
    writer.begin(parser);
    if (parser.parse() && writer.error().isNull())
        return true;
    platform::setError(error, writer.error().isNull() ? parser.parserError() : writer.error());
    return false;
}

// The file of one note, while it lives.
class NoteFile {
public:
    [[nodiscard]] bool write(const SelectedNotesStream::Note& note, Error* error)
    {
        const QString folder = platform::StandardDirectories::temporary();
        m_file.setFileTemplate(folder + QStringLiteral("/Note-XXXXXX.enex"));
        if (folder.isEmpty() || !m_file.open()) {
            platform::setError(error, exportNotWrittenError(folder, m_file.errorString()));
            return false;
        }
        if (!writeNotes({note}, m_file, EvernoteApplication::ExportTags::Yes, error))
            return false;
        if (m_file.flush())
            return true;
        platform::setError(error, exportNotWrittenError(m_file.fileName(), m_file.errorString()));
        return false;
    }

    [[nodiscard]] QUrl url() const { return QUrl::fromLocalFile(m_file.fileName()); }

private:
    QTemporaryFile m_file;
};

bool writePage(const SelectedNotesStream::Note& note, const QString& folder, QStringList* warnings,
               Error* error)
{
    NoteFile file;
    if (!file.write(note, error))
        return false;
    const auto parse = EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(
        file.url(), QUrl::fromLocalFile(folder), platform::manifest::makeRecord());
    parse->setItemFactory([](const QUrl& directoryURL) -> std::unique_ptr<EvernoteXMLNote> {
        return std::make_unique<NotePage>(directoryURL);
    });
    bool isWritten = false;
    parse->setParseOperationDidExportItemBlock(
        [&, operation = parse.get()](const platform::manifest::Record& record,
                                     const std::optional<Error>& failure) {
            isWritten = record != nullptr;
            *warnings += operation->currentItem()->warnings();
            if (failure)
                platform::setError(error, *failure);
        });
    parse->start();
    if (parse->operationError()) {
        platform::setError(error, *parse->operationError());
        return false;
    }
    return isWritten;
}

} // namespace

bool exportAsEnex(const std::vector<SelectedNotesStream::Note>& notes, const QString& to,
                  EvernoteApplication::ExportTags tags, Error* error)
{
    QTemporaryFile file(unfinishedName(to));
    if (!file.open()) {
        platform::setError(error, exportNotWrittenError(to, file.errorString()));
        return false;
    }
    if (!writeNotes(notes, file, tags, error))
        return false;
    // Whatever was there stays, and the unfinished file goes.
    if (!file.flush() || !file.rename(to)) {
        platform::setError(error, exportNotWrittenError(to, file.errorString()));
        return false;
    }
    file.setAutoRemove(false);
    return true;
}

bool exportAsPages(const std::vector<SelectedNotesStream::Note>& notes, const QString& to,
                   QStringList* warnings, Error* error)
{
    QTemporaryDir folder(unfinishedName(to));
    if (!folder.isValid()) {
        platform::setError(error, exportNotWrittenError(to, folder.errorString()));
        return false;
    }
    for (const SelectedNotesStream::Note& note : notes) {
        if (!writePage(note, folder.path(), warnings, error))
            return false;
    }
    if (!platform::moveItem(folder.path(), to, error))
        return false;
    folder.setAutoRemove(false);
    return true;
}
