// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperation.h"
#include "import/ItemRecordList.h"

#include <QHash>

#include <atomic>
#include <memory>
#include <vector>

// A run over the Evernote application's notebooks, each of which the application exports as one
// ENEX file. The file is moved into the notebook's folder, where it stays, and converted like one
// that the user picked.
//
// main() returns when the first notebook's conversion is queued; everything after that happens on
// the queue's threads, one notebook after another.
class EvernoteXMLExportOperation : public EvernoteExportOperation {
public:
    // Made with the first notebook, null before; it may be asked for on any thread.
    [[nodiscard]] platform::OperationQueue* parserQueue() const { return m_sharedQueue; }
    [[nodiscard]] platform::OperationQueue* conversionQueue() override { return parserQueue(); }
    // The item records of the notebook that is being converted, in the order in which the parse
    // reported them.
    [[nodiscard]] const ItemRecordList& notebookItemDicts() const { return m_notebookItemDicts; }

    // Reaches a conversion that is queued or running. While the application exports there is none,
    // and the run goes on; whatever fails from then on counts as the cancellation.
    void cancel() override;

protected:
    void performExportForNotebook(const Notebook& notebook, const QString& toNotebookFilesPath,
                                  const platform::manifest::Record& targetFolder) override;
    void didHandleNote(const QString& title) override;

private:
    // The folder that the application can write to. made: whether it was made for this export.
    [[nodiscard]] std::optional<QString> exportFolder(bool* made, platform::Error* error);
    // Has the application write the notes to a file and moves that into the folder; its path there.
    // None when it could not be moved, which is how a failed export shows.
    [[nodiscard]] std::optional<QString> exportNotes(const Notebook& notebook, const Notes& notes,
                                                     const QString& folder, platform::Error* error);
    void warnOfMissingNotes(const Notes& notes);

    std::unique_ptr<platform::OperationQueue> m_parserQueue;
    // The same, once it may be used from other threads.
    std::atomic<platform::OperationQueue*> m_sharedQueue = nullptr;
    ItemRecordList m_notebookItemDicts;
    // How often the parse met a title, by the title's hash.
    QHash<std::size_t, int> m_handledTitles;
    quint64 m_handledNotes = 0;
};
