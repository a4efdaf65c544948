// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EnexModernizer.h"
#include "enex/EvernoteXMLElements.h"
#include "enex/EvernoteXMLNote.h"
#include "enex/NoteLinkTargets.h"
#include "platform/core/DateFormatter.h"
#include "platform/core/Error.h"
#include "platform/files/OutputStream.h"
#include "platform/operations/Operation.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/xml/XMLParser.h"

#include <QUrl>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

// Reads one ENEX file as a stream of notes. At the end of each note the note converts itself, and the result
// is handed to the did-export block before the next note is read. A note that cannot be converted, be it by
// an exception, never ends the file.
//
// An element's end does not end its field: characters between it and the next element still go there. So
// white space between the elements of an indented file adds empty tags and clears dates. Files are read so on
// purpose; the folders that people have imported before were made by this rule. Where it shall not hold, an
// EnexModernizer stands before it (FileForm::Modern).
class EvernoteXMLParseOperation : public platform::Operation, private platform::XMLParserDelegate {
public:
    using ItemFactory = std::function<std::unique_ptr<EvernoteXMLNote>(const QUrl& directoryURL)>;
    using DidExportItemBlock
        = std::function<void(const platform::manifest::Record& record, const std::optional<platform::Error>& error)>;
    using CompletionBlock = std::function<void(const std::optional<platform::Error>& error)>;

    // fileURL: the ENEX file. directoryURL: the folder that the notes' files go to. group: its folder record.
    [[nodiscard]] static std::shared_ptr<EvernoteXMLParseOperation>
    evernoteParseOperationForFileAtURL(const QUrl& fileURL, const QUrl& directoryURL,
                                       const platform::manifest::Record& group);

    EvernoteXMLParseOperation();
    ~EvernoteXMLParseOperation() override;

    [[nodiscard]] const QUrl& evernoteFileURL() const { return m_evernoteFileURL; }
    void setEvernoteFileURL(const QUrl& url) { m_evernoteFileURL = url; }
    [[nodiscard]] const QUrl& directoryURL() const { return m_directoryURL; }
    [[nodiscard]] const platform::manifest::Record& groupDict() const { return m_groupDict; }

    // What makes a note, given the import folder. Must be set before the operation is queued.
    void setItemFactory(ItemFactory factory) { m_itemFactory = std::move(factory); }

    // Writes every event into the log.
    [[nodiscard]] bool debugMode() const { return m_debugMode; }
    void setDebugMode(bool debugMode) { m_debugMode = debugMode; }

    [[nodiscard]] const std::shared_ptr<platform::OutputStream>& logStream() const { return m_logStream; }
    void setLogStream(std::shared_ptr<platform::OutputStream> stream) { m_logStream = std::move(stream); }

    enum class FileForm {
        // The file is read as it stands.
        AsWritten,
        // The file is of today's Evernote, and comes through an EnexModernizer.
        Modern
    };
    [[nodiscard]] FileForm fileForm() const { return m_fileForm; }
    void setFileForm(FileForm form) { m_fileForm = form; }

    enum class TimeStamps {
        // Of the clock on the wall: the Z at their ends means nothing.
        WallClock,
        // What Evernote means by them.
        UTC
    };
    [[nodiscard]] TimeStamps timeStamps() const { return m_timeStamps; }
    void setTimeStamps(TimeStamps timeStamps) { m_timeStamps = timeStamps; }

    // Where the identifiers of the items come from that links lead to; null, as it is at first, for none.
    void setLinkTargets(std::shared_ptr<const NoteLinkTargets> targets) { m_linkTargets = std::move(targets); }

    // How many bytes are read from the file at a time.
    void setReadChunkSize(qsizetype bytes) { m_readChunkSize = bytes; }

    // Called on the operation's thread at the end of every note, with its record or none, and its error or
    // none.
    void setParseOperationDidExportItemBlock(DidExportItemBlock block) { m_didExportItemBlock = std::move(block); }
    // Called on the operation's thread when it marks itself finished, with the error that ended it or none.
    // It may be called twice: when an event ends the file, first with that event's error, then with the
    // reader's.
    void setParseOperationCompletionBlock(CompletionBlock block) { m_completionBlock = std::move(block); }

    [[nodiscard]] const std::optional<platform::Error>& operationError() const { return m_operationError; }
    [[nodiscard]] bool operationExecuting() const { return m_operationExecuting; }
    [[nodiscard]] bool operationFinished() const { return m_operationFinished; }
    void setOperationFinished(bool finished);

    // The note being read; inside the did-export block, the note that was just handled.
    [[nodiscard]] const EvernoteXMLNote* currentItem() const { return m_currentItem.get(); }

    [[nodiscard]] bool isAsynchronous() const override { return true; }

    // May be called from any thread: the parse stops after the event that it is handling, and the completion
    // block gets the reader's abort error. A note that waits for something waits no longer.
    void cancel() override;

protected:
    void main() override;

    // Null when there can be no parser, which ends the file.
    [[nodiscard]] virtual std::unique_ptr<platform::XMLParser> createParser(platform::InputStream& stream);

private:
    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserParseErrorOccurred(platform::XMLParser& parser, const platform::Error& error) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

    void startElementInNote(const QString& name);
    void startElementInResource(const QString& name, const platform::XMLAttributes& attributes);
    void startElementInNoteAttributes(const QString& name);
    void charactersInResource(QUtf8StringView chunk);
    void charactersInNoteAttributes(QUtf8StringView chunk);
    void endNote();
    void completeNote();
    void endResource();

    [[nodiscard]] bool stopIfCancelled();
    void finishWithError(const platform::Error& error);
    void debugLog(const QString& event);
    [[nodiscard]] std::optional<QDateTime> dateFrom(QUtf8StringView chunk) const;

    QUrl m_evernoteFileURL;
    QUrl m_directoryURL;
    platform::manifest::Record m_groupDict;
    ItemFactory m_itemFactory;
    bool m_debugMode = false;
    std::shared_ptr<platform::OutputStream> m_logStream;
    DidExportItemBlock m_didExportItemBlock;
    CompletionBlock m_completionBlock;

    std::optional<platform::Error> m_operationError;
    std::atomic<bool> m_operationExecuting = false;
    std::atomic<bool> m_operationFinished = false;
    std::atomic<bool> m_abortRequested = false;
    // What the notes wait for, one after another.
    const std::shared_ptr<platform::OperationGroup> m_awaitedOperations
        = std::make_shared<platform::OperationGroup>();
    // m_parser, once it may be stopped from other threads.
    std::atomic<platform::XMLParser*> m_abortableParser = nullptr;

    FileForm m_fileForm = FileForm::AsWritten;
    TimeStamps m_timeStamps = TimeStamps::WallClock;
    std::shared_ptr<const NoteLinkTargets> m_linkTargets;
    qsizetype m_readChunkSize = platform::XMLParser::defaultChunkSize;
    std::unique_ptr<platform::InputStream> m_inputStream;
    std::unique_ptr<platform::XMLParser> m_parser;
    // Between the parser and the operation; none for a file that is read as it stands.
    std::unique_ptr<EnexModernizer> m_modernizer;
    platform::DateFormatter m_dateFormatter;

    EvernoteXMLElement m_currentElement = EvernoteXMLElementNone;
    EvernoteXMLNoteElement m_currentNoteElement = EvernoteXMLNoteElementNone;
    EvernoteXMLResourceElement m_currentResourceElement = EvernoteXMLResourceElementNone;
    EvernoteXMLResourceAttributesElement m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementNone;
    EvernoteXMLNoteAttributesElement m_currentNoteAttributesElement = EvernoteXMLNoteAttributesElementNone;
    std::unique_ptr<EvernoteXMLNote> m_currentItem;
    std::shared_ptr<EvernoteXMLResource> m_currentResource;
};
