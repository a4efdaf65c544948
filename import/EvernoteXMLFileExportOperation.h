// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperation.h"
#include "import/ItemRecordList.h"
#include "platform/operations/OperationQueue.h"
#include "platform/xml/XMLParser.h"

#include <QUrl>

#include <memory>
#include <optional>

class EvernoteXMLNote;

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

    // Runs the converting parse.
    [[nodiscard]] platform::OperationQueue& parserQueue() { return m_parserQueue; }
    // The item records, in the order in which the parse reported them.
    [[nodiscard]] const ItemRecordList& notebookItemDicts() const { return m_notebookItemDicts; }
    // As the counting pass found.
    [[nodiscard]] quint64 noteCount() const { return m_noteCount; }

protected:
    void main() override;

private:
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserParseErrorOccurred(platform::XMLParser& parser, const platform::Error& error) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

    void countNotes();
    void countingDidFail(const platform::Error& error);
    void startExport();
    void startParse(const QString& folderPath, const platform::manifest::Record& folder);
    // note: null for an end of a note that nothing had begun.
    void didExportItem(const EvernoteXMLNote* note, const platform::manifest::Record& record,
                       const std::optional<platform::Error>& error);
    void exportDidEnd(const std::optional<platform::Error>& error);

    QUrl m_exportFileURL;
    platform::OperationQueue m_parserQueue;
    ItemRecordList m_notebookItemDicts;
    std::unique_ptr<platform::XMLParser> m_xmlParser;
    quint64 m_noteCount = 0;
    bool m_countingFailed = false;
};
