// SPDX-License-Identifier: MIT
#pragma once

#include "formats/QLNoteAttributes.h"
#include "platform/attributedtext/AttributedString.h"
#include "platform/core/Error.h"
#include "platform/files/FileWrapper.h"
#include "platform/rtfd/DocumentAttributes.h"
#include "platform/undo/UndoManager.h"

#include <QString>
#include <QUrl>

#include <memory>
#include <optional>

// A rich-text note of the notes application, in memory and as a package on disk: an RTFD folder
// with the extension "qlnote" that also holds the record "NoteAttributes". Checkboxes are
// attachments in memory and box texts in the package.
class QLNoteFile : public std::enable_shared_from_this<QLNoteFile> {
public:
    // The name that a new note has until it is given one.
    [[nodiscard]] static QString nameOfNewNote();
    // The resource "Welcome to Quillery.qlnote" of an older version; none where it is not shipped.
    [[nodiscard]] static std::optional<QString> oldWelcomeNotePath();
    // An untouched new note: by its extension, by its name, and by its text, which is empty or
    // unreadable.
    [[nodiscard]] static bool noteFileAtURLIsEmpty(const QUrl& url);
    // The attributes of the text of new notes, from the settings.
    [[nodiscard]] static platform::TextAttributes defaultNoteAttributes();

    // Null with the platform's error when the URL is no package that can be read. Throws
    // platform::InvalidArchive when its record is no keyed archive.
    [[nodiscard]] static std::shared_ptr<QLNoteFile>
    noteFileWithFileURL(const QUrl& url, platform::Error* error = nullptr);

    // An empty new note.
    QLNoteFile();

    [[nodiscard]] std::shared_ptr<QLNoteFile> copy() const;

    [[nodiscard]] const platform::AttributedString& noteText() const { return m_noteText; }
    // Can be taken back through the undo manager, where there is one.
    void setNoteText(const platform::AttributedString& text);

    [[nodiscard]] platform::DocumentAttributes& documentAttributes()
    {
        return m_documentAttributes;
    }
    void setDocumentAttributes(const platform::DocumentAttributes& attributes)
    {
        m_documentAttributes = attributes;
    }

    // Null for a note whose package held a record that was none.
    [[nodiscard]] const std::shared_ptr<QLNoteAttributes>& noteAttributes() const
    {
        return m_noteAttributes;
    }
    void setNoteAttributes(std::shared_ptr<QLNoteAttributes> record)
    {
        m_noteAttributes = std::move(record);
    }

    [[nodiscard]] const QUrl& noteURL() const { return m_noteURL; }
    void setNoteURL(const QUrl& url) { m_noteURL = url; }

    [[nodiscard]] const std::shared_ptr<platform::UndoManager>& undoManager() const
    {
        return m_undoManager;
    }
    void setUndoManager(std::shared_ptr<platform::UndoManager> manager)
    {
        m_undoManager = std::move(manager);
    }

    // The package. The record's checklist items become those of the text.
    [[nodiscard]] platform::FileWrapper::Pointer fileWrapper(platform::Error* error = nullptr);
    // Writes a package made by fileWrapper, whole or not at all. The record is added once more,
    // under the name that the wrapper finds for a second child: every note is stored so. A note
    // that is replaced keeps its creation date and whether its extension is hidden; a new one hides
    // it.
    [[nodiscard]] bool writeFileWrapper(const platform::FileWrapper::Pointer& wrapper,
                                        const QString& toFile, platform::Error* error = nullptr);
    [[nodiscard]] bool writeToFile(const QString& path, platform::Error* error = nullptr);

private:
    void readRecord(const platform::FileWrapper& package, platform::AttributedString& text);
    [[nodiscard]] bool addRecord(platform::FileWrapper& package, platform::Error* error);

    platform::AttributedString m_noteText;
    platform::DocumentAttributes m_documentAttributes;
    std::shared_ptr<QLNoteAttributes> m_noteAttributes;
    QUrl m_noteURL;
    std::shared_ptr<platform::UndoManager> m_undoManager;
};
