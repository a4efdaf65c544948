// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLItemType.h"
#include "foundation/FreeFileNames.h"
#include "import/EvernoteExportOperation.h"
#include "platform/attributedtext/AttributedString.h"

#include <QHash>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>

// A run over the Evernote application's notebooks, whose notes the application exports one by one
// as pages. A page becomes a note file, or, where it is nothing but one attached file, that file
// becomes the item. The older way: ENEX keeps more.
class EvernoteHTMLExportOperation : public EvernoteExportOperation {
public:
    using Note = std::shared_ptr<platform::EvernoteNote>;

    // Whether a page's body is one link or image that leads to a file beside the page, and to
    // which. A file elsewhere counts as none: a note must not reach what its page does not own.
    // False when the page cannot be read, then with an error, or has no body.
    [[nodiscard]] bool exportedNoteAtPath(const QString& path, bool* isSingleAttachment,
                                          QUrl* atURL, platform::Error* error = nullptr);

    // The item record of a note, whose file is made of its page. toDirectory: the notebook's
    // folder. None with an error when the file could not be made.
    [[nodiscard]] platform::manifest::Record
    exportNoteAtHTMLFile(const Note& note, const QString& htmlFile, const QString& toDirectory,
                         const platform::manifest::Record& folder,
                         platform::Error* error = nullptr);
    // The item record of a note that is an attached file, which stays where it is.
    [[nodiscard]] platform::manifest::Record
    exportNoteOfItemItemAtAttachmentFile(const Note& note, EvernoteXMLItemType itemType,
                                         const QString& attachmentFile, const QString& toDirectory,
                                         const platform::manifest::Record& folder,
                                         platform::Error* error = nullptr);

    // A page on its way into a note file.
    struct ConversionRequest {
        QString originalHTMLFilePath;
        QString noteFilePath;
        Note originalNote;
        // Filled by the conversion.
        bool success = false;
        platform::Error error;
        QStringList warnings;
        // Of the attachments that lie beside the page.
        NoteCounts counts;
    };
    // On the main thread.
    void convertEvernoteToQuillery(ConversionRequest& request);

protected:
    void performExportForNotebook(const Notebook& notebook, const QString& toNotebookFilesPath,
                                  const platform::manifest::Record& targetFolder) override;

    // The text as a package of rich text; null when there can be none.
    [[nodiscard]] virtual platform::FileWrapper::Pointer
    packageOf(const platform::AttributedString& text);

private:
    struct NotebookPlaces;
    // The record of a note that the application has exported, or none with the reason in the
    // report.
    [[nodiscard]] platform::manifest::Record
    recordOfExportedNote(const Note& note, const QString& htmlFile, const NotebookPlaces& places);
    // The page that the application wrote for a note; none, with why, when there is none.
    [[nodiscard]] std::optional<QString> exportPage(const Note& note, const NotebookPlaces& places,
                                                    platform::Error* error);
    [[nodiscard]] platform::manifest::Record newRecord(const Note& note, const QString& identifier,
                                                       EvernoteXMLItemType itemType,
                                                       const QString& path,
                                                       const platform::manifest::Record& folder);
    [[nodiscard]] QString identifierOf(const Note& note);
    void setDates(const Note& note, const QString& path, bool hidesExtension);
    void attachResources(platform::AttributedString& text, ConversionRequest& request);
    void skip(const QString& title, const platform::Error& error);

    // Titles of notes whose identifiers come from their links: two links may end alike.
    QHash<QString, QString> m_titlesByIdentifier;
    FreeFileNames m_freeNames;
};
