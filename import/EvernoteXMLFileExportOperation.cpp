// SPDX-License-Identifier: MIT
#include "import/EvernoteXMLFileExportOperation.h"

#include "enex/EvernoteXMLErrors.h"
#include "enex/EvernoteXMLParseOperation.h"
#include "import/ModernFileTexts.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/defaults/UserDefaults.h"

#include <cstdio>

using platform::Error;
using platform::manifest::Record;

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
    m_census = EnexCensus(titlesToCollect());
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

EnexCensus::Titles EvernoteXMLFileExportOperation::titlesToCollect() const
{
    const platform::UserDefaults& defaults = platform::UserDefaults::standard();
    if (!defaults.boolForKey(QStringLiteral("ResolveNoteLinks")))
        return EnexCensus::Titles::Skip;
    const bool isReadAsItStands
        = m_modernFiles == ModernFiles::ReadAsItStands
          || (m_modernFiles == ModernFiles::BySetting && !defaults.boolForKey(QStringLiteral("ModernENEX")));
    // A file that will only be recognized, and is not, has the same titles either way.
    return isReadAsItStands ? EnexCensus::Titles::AsWritten : EnexCensus::Titles::Modern;
}

void EvernoteXMLFileExportOperation::parserDidStartElement(platform::XMLParser& parser, const QString& name,
                                                           const platform::XMLAttributes& attributes)
{
    m_census.parserDidStartElement(parser, name, attributes);
}

void EvernoteXMLFileExportOperation::parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text)
{
    m_census.parserFoundCharacters(parser, text);
}

void EvernoteXMLFileExportOperation::parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8)
{
    m_census.parserFoundCData(parser, utf8);
}

void EvernoteXMLFileExportOperation::parserDidEndElement(platform::XMLParser& parser, const QString& name)
{
    m_census.parserDidEndElement(parser, name);
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
    releaseSharedState();
    informDelegateDidEncounterError(error);
}

void EvernoteXMLFileExportOperation::parserDidEndDocument(platform::XMLParser&) { startExport(); }

void EvernoteXMLFileExportOperation::startExport()
{
    const QString path = m_exportFileURL.toLocalFile();
    log(QStringLiteral("Exporting notes from ") + path);
    m_report.notes = m_noteCount;
    recognizeFile();
    const QString name = platform::stringByDeletingPathExtension(platform::lastPathComponent(path));
    QString folderPath;
    Error failure;
    const Record folder = makeNotebookFolder(name, &folderPath, &failure);
    if (!folder) {
        logUnableToCreate(folderPath, failure);
        releaseSharedState();
        informDelegateDidEncounterError(directoryError());
        return;
    }
    informDelegate([this](EvernoteExportOperationDelegate& delegate) {
        delegate.exportOperationWillExportRecordsFromFileAtURL(*this, m_noteCount, m_exportFileURL);
    });
    convertFile(m_exportFileURL, folderPath, folder, m_notebookItemDicts, m_parserQueue,
                [this](const std::optional<Error>& error) { exportDidEnd(error); });
}

void EvernoteXMLFileExportOperation::recognizeFile()
{
    const bool isSet = platform::UserDefaults::standard().boolForKey(QStringLiteral("ModernENEX"));
    m_report.modernSigns = m_census.signs();
    const bool isRecognized = m_modernFiles == ModernFiles::Recognized && m_report.modernSigns.isModern();
    m_report.isReadAsModern = m_modernFiles == ModernFiles::ReadWhole
                              || (m_modernFiles != ModernFiles::ReadAsItStands && (isSet || isRecognized));
    m_report.isRecognizedAsModern = isRecognized && !isSet;
    const ModernFileRead read = m_report.isReadAsModern ? ModernFileRead::Whole : ModernFileRead::AsItStands;
    for (const QString& line : modernFileLogLines(m_report.modernSigns, read))
        log(line);
    m_report.remarks += modernFileRemarks(m_report.modernSigns, read);
}

void EvernoteXMLFileExportOperation::configureParse(EvernoteXMLParseOperation& parse)
{
    EvernoteExportOperation::configureParse(parse);
    parse.setFileForm(m_report.isReadAsModern ? EvernoteXMLParseOperation::FileForm::Modern
                                              : EvernoteXMLParseOperation::FileForm::AsWritten);
    parse.setLinkTargets(m_census.linkTargets());
}

void EvernoteXMLFileExportOperation::didCount(const EvernoteXMLNote& note, const Record& record)
{
    if (!m_census.linkTargets() || !record)
        return;
    m_importedNotes.insert(note.identifier());
    for (const QString& identifier : note.linkedNotes())
        ++m_linksTo[identifier];
}

// A link may lead to a note that came later and then could not be converted.
void EvernoteXMLFileExportOperation::remarkOnLinks()
{
    quint64 dangling = 0;
    for (auto links = m_linksTo.cbegin(); links != m_linksTo.cend(); ++links) {
        if (!m_importedNotes.contains(links.key()))
            dangling += links.value();
    }
    if (dangling > 0) {
        m_report.remarks
            += platform::localizedString("Links that lead to notes which were skipped: %1.").arg(dangling);
    }
}

void EvernoteXMLFileExportOperation::exportDidEnd(const std::optional<Error>& error)
{
    if (error) {
        stopRun(error);
        return;
    }
    remarkOnLinks();
    log(QStringLiteral("*** Export ended for: ") + m_exportFileURL.toLocalFile());
    finishRun();
}
