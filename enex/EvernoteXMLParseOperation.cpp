// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLParseOperation.h"

#include "enex/EvernoteXMLErrors.h"
#include "enex/TimeStamp.h"
#include "foundation/OutputStreamBMExtensions.h"
#include "platform/core/LocalizedStrings.h"

#include <exception>

using platform::Error;
using platform::localizedString;

namespace {

// The Z is a literal and the year the week's year: time stamps are read as local wall-clock time.
const QString timeStampPattern = QStringLiteral("YYYYMMdd'T'HHmmss'Z'");

// How the platform writes a value that is not there.
const QString nilText = QStringLiteral("(null)");

Error parseError(EvernoteXMLParseOperationErrorCode code, const QString& text)
{
    return {evernoteXMLParseOperationErrorDomain, code, text};
}

} // namespace

std::shared_ptr<EvernoteXMLParseOperation>
EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(const QUrl& fileURL, const QUrl& directoryURL,
                                                              const platform::manifest::Record& group)
{
    auto operation = std::make_shared<EvernoteXMLParseOperation>();
    operation->m_evernoteFileURL = fileURL;
    operation->m_directoryURL = directoryURL;
    operation->m_groupDict = group;
    return operation;
}

EvernoteXMLParseOperation::EvernoteXMLParseOperation()
    : m_dateFormatter(timeStampPattern)
{
}

EvernoteXMLParseOperation::~EvernoteXMLParseOperation() = default;

void EvernoteXMLParseOperation::main()
{
    m_operationExecuting = true;
    m_inputStream = platform::InputStream::inputStreamWithURL(m_evernoteFileURL);
    if (!m_inputStream) {
        finishWithError(parseError(EvernoteXMLParseOperationErrorNoInputStream,
                                   localizedString("Cannot create input stream.")));
        return;
    }
    m_parser = createParser(*m_inputStream);
    if (!m_parser) {
        finishWithError(
            parseError(EvernoteXMLParseOperationErrorNoParser, localizedString("Cannot create parser.")));
        return;
    }
    platform::XMLParserDelegate& reader = *this;
    if (m_fileForm == FileForm::Modern)
        m_modernizer = std::make_unique<EnexModernizer>(reader);
    m_parser->setDelegate(m_modernizer ? m_modernizer.get() : &reader);
    m_abortableParser = m_parser.get();
    // A cancel that came before there was a parser to stop.
    if (m_abortRequested)
        m_parser->abortParsing();
    if (!m_parser->parse())
        finishWithError(m_parser->parserError());
}

std::unique_ptr<platform::XMLParser> EvernoteXMLParseOperation::createParser(platform::InputStream& stream)
{
    return std::make_unique<platform::XMLParser>(stream, m_readChunkSize);
}

void EvernoteXMLParseOperation::cancel()
{
    m_abortRequested = true;
    // The parser lives as long as the operation, and may be stopped from any thread.
    if (platform::XMLParser* const parser = m_abortableParser)
        parser->abortParsing();
    // The event that is being handled may be the end of a note that waits for something.
    m_awaitedOperations->cancelAllOperations();
    Operation::cancel();
}

bool EvernoteXMLParseOperation::stopIfCancelled()
{
    if (m_abortRequested)
        m_parser->abortParsing();
    return m_abortRequested;
}

void EvernoteXMLParseOperation::setOperationFinished(bool finished)
{
    m_operationFinished = finished;
    if (!finished)
        return;
    m_operationExecuting = false;
    if (m_parser)
        m_parser->abortParsing();
    if (m_completionBlock)
        m_completionBlock(m_operationError);
}

void EvernoteXMLParseOperation::finishWithError(const Error& error)
{
    m_operationError = error;
    setOperationFinished(true);
}

void EvernoteXMLParseOperation::debugLog(const QString& event)
{
    if (m_debugMode)
        writeLogLine(m_logStream.get(), event);
}

std::optional<QDateTime> EvernoteXMLParseOperation::dateFrom(QUtf8StringView chunk) const
{
    return m_timeStamps == TimeStamps::UTC ? utcDateFromTimeStamp(chunk.toString())
                                           : m_dateFormatter.dateFromString(chunk.toString());
}

void EvernoteXMLParseOperation::parserDidEndElement(platform::XMLParser&, const QString& name)
{
    if (stopIfCancelled())
        return;
    if (m_debugMode)
        debugLog(QStringLiteral("parser:didEndElement: ") + name);
    if (name == QLatin1String("note")) {
        endNote();
    } else if (name == QLatin1String("resource")) {
        endResource();
    } else if (name == QLatin1String("note-attributes")) {
        m_currentNoteElement = EvernoteXMLNoteElementNone;
        m_currentNoteAttributesElement = EvernoteXMLNoteAttributesElementNone;
    } else if (name == QLatin1String("resource-attributes")) {
        m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementNone;
    } else if (name == QLatin1String("task") && m_currentItem) {
        // Not read, but told of.
        ++m_currentItem->counts().tasks;
        ++m_currentItem->counts().leftOutTasks;
    }
}

void EvernoteXMLParseOperation::completeNote()
{
    m_currentItem->setAwaitedOperations(m_awaitedOperations);
    if (m_modernizer) {
        NoteCounts& counts = m_currentItem->counts();
        counts.tasks = counts.taskLines = static_cast<quint64>(m_modernizer->taskCount());
    }
    if (!m_linkTargets)
        return;
    m_currentItem->setLinkTargets(m_linkTargets);
    if (const auto identifier = m_linkTargets->identifierForTitle(m_currentItem->title()))
        m_currentItem->setIdentifier(*identifier);
}

void EvernoteXMLParseOperation::endNote()
{
    const QString title = m_currentItem ? m_currentItem->title() : nilText;
    writeLogLine(m_logStream.get(), QStringLiteral("Converting \"%1\"").arg(title));
    platform::manifest::Record record;
    std::optional<Error> error;
    try {
        Error conversionError;
        if (m_currentItem) {
            completeNote();
            record = m_currentItem->itemDictInGroup(m_groupDict, &conversionError);
        }
        if (!conversionError.isNull())
            error = conversionError;
    } catch (const std::exception& exception) {
        record = nullptr;
        error = parseError(EvernoteXMLParseOperationErrorException, QString::fromUtf8(exception.what()));
    } catch (...) {
        record = nullptr;
        error = parseError(EvernoteXMLParseOperationErrorException, localizedString("An unknown error occurred."));
    }
    if (!record)
        writeLogLine(m_logStream.get(), QStringLiteral("Skipping \"%1\"").arg(title));
    if (m_didExportItemBlock)
        m_didExportItemBlock(record, error);
    m_currentItem = nullptr;
    m_currentElement = EvernoteXMLElementNone;
    m_currentNoteElement = EvernoteXMLNoteElementNone;
}

void EvernoteXMLParseOperation::endResource()
{
    if (m_currentItem && m_currentResource)
        m_currentItem->addResource(std::move(m_currentResource));
    m_currentResource = nullptr;
    m_currentNoteElement = EvernoteXMLNoteElementNone;
    m_currentResourceElement = EvernoteXMLResourceElementNone;
}

void EvernoteXMLParseOperation::parserParseErrorOccurred(platform::XMLParser&, const Error& error)
{
    finishWithError(error);
}

void EvernoteXMLParseOperation::parserDidEndDocument(platform::XMLParser&) { setOperationFinished(true); }
