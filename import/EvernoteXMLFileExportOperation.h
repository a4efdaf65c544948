// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EnexCensus.h"
#include "import/EvernoteExportOperation.h"
#include "import/ItemRecordList.h"
#include "platform/operations/OperationQueue.h"
#include "platform/xml/XMLParser.h"

#include <QHash>
#include <QSet>
#include <QUrl>

#include <memory>
#include <optional>

// The import of one ENEX file that the user picked. The file is read twice: first only to count its notes, then,
// on a queue of its own, to convert them. All notes go into one folder named after the file.
//
// main() returns when the counting is done; the conversion goes on. Cancelling the run does not reach it: that
// is up to who cancels, through parserQueue().
class EvernoteXMLFileExportOperation : public EvernoteExportOperation, private platform::XMLParserDelegate {
public:
    EvernoteXMLFileExportOperation();
    ~EvernoteXMLFileExportOperation() override;

    // To be set before the run is queued.
    [[nodiscard]] const QUrl& exportFileURL() const { return m_exportFileURL; }
    void setExportFileURL(const QUrl& url) { m_exportFileURL = url; }

    // What is done about a file of today's Evernote, which loses some of what it holds when it is read as it
    // stands.
    enum class ModernFiles {
        // The setting "ModernENEX" says whether it is read whole.
        BySetting,
        // It is read whole when the setting says so or the counting pass recognizes it.
        Recognized,
        // For this run, whatever the setting says.
        ReadWhole,
        ReadAsItStands
    };
    // To be set before the run is queued.
    void setModernFiles(ModernFiles modernFiles) { m_modernFiles = modernFiles; }

    // Runs the converting parse.
    [[nodiscard]] platform::OperationQueue& parserQueue() { return m_parserQueue; }
    [[nodiscard]] platform::OperationQueue* conversionQueue() override { return &m_parserQueue; }
    // The item records, in the order in which the parse reported them.
    [[nodiscard]] const ItemRecordList& notebookItemDicts() const { return m_notebookItemDicts; }
    // As the counting pass found.
    [[nodiscard]] quint64 noteCount() const { return m_noteCount; }

protected:
    void main() override;

private:
    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserParseErrorOccurred(platform::XMLParser& parser, const platform::Error& error) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

    void countNotes();
    [[nodiscard]] EnexCensus::Titles titlesToCollect() const;
    void recognizeFile();
    void configureParse(EvernoteXMLParseOperation& parse) override;
    void didCount(const EvernoteXMLNote& note, const platform::manifest::Record& record) override;
    void remarkOnLinks();
    void countingDidFail(const platform::Error& error);
    void startExport();
    void exportDidEnd(const std::optional<platform::Error>& error);

    QUrl m_exportFileURL;
    platform::OperationQueue m_parserQueue;
    ItemRecordList m_notebookItemDicts;
    std::unique_ptr<platform::XMLParser> m_xmlParser;
    quint64 m_noteCount = 0;
    bool m_countingFailed = false;
    ModernFiles m_modernFiles = ModernFiles::BySetting;
    EnexCensus m_census;
    // Where links are resolved: how many lead to each note, and the notes that came across.
    QHash<QString, quint64> m_linksTo;
    QSet<QString> m_importedNotes;
};
