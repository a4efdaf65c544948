// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteHTMLExportOperation.h"

#include "import/ExportingEvernote.h"
#include "import/RunFixture.h"
#include "platform/attributedtext/AttributedString.h"
#include "platform/rtfd/RtfdPackage.h"

// A run over the pages that a test makes.
class HTMLExportTest : public ImportRunTest {
protected:
    void SetUp() override
    {
        ImportRunTest::SetUp();
        useRun(std::make_shared<EvernoteHTMLExportOperation>());
    }

    void useRun(const std::shared_ptr<EvernoteHTMLExportOperation>& newRun)
    {
        m_run = newRun;
        prepare(*m_run);
        m_run->setEvernoteApp(m_evernote);
    }

    void runAll()
    {
        m_run->setNotebooks(m_evernote->notebooks());
        run(m_run);
    }

    // The notebook "N".
    ExportingNotebook& notebook()
    {
        if (!m_notebook)
            m_notebook = m_evernote->addNotebook(text("N"));
        return *m_notebook;
    }

    std::shared_ptr<ExportingNote> addNote(const char* title, const QByteArray& body = "text")
    {
        return ExportingEvernote::addNote(notebook(), text(title), body);
    }

    // A note whose page has an attachment beside it.
    std::shared_ptr<ExportingNote> addNoteWithFile(const char* title, const QByteArray& body,
                                                   const char* fileName)
    {
        const auto note = addNote(title, body);
        note->pages.insert(text("Page.resources/") + text(fileName), "the file's bytes");
        return note;
    }

    [[nodiscard]] QVariantMap itemNamed(const char* name) const
    {
        for (const QVariantMap& item : records(text("Item"))) {
            if (item.value(text("name")).toString() == text(name))
                return item;
        }
        ADD_FAILURE() << "no item is named " << name;
        return {};
    }

    // The text of a note file in the notebook's folder.
    [[nodiscard]] platform::AttributedString noteText(const char* fileName) const
    {
        const QString path = filesPath() + text("/N/") + text(fileName);
        const auto note = platform::attributedStringFromRtfd(path);
        EXPECT_TRUE(note) << qPrintable(path);
        return note.value_or(platform::AttributedString());
    }

    [[nodiscard]] static QStringList attachmentsOf(const platform::AttributedString& note)
    {
        QStringList names;
        for (const auto& part : note.runs()) {
            if (part.attributes->attachment && part.attributes->attachment->fileWrapper())
                names += part.attributes->attachment->fileWrapper()->preferredFilename();
        }
        return names;
    }

    std::shared_ptr<ExportingEvernote> m_evernote = std::make_shared<ExportingEvernote>();
    std::shared_ptr<ExportingNotebook> m_notebook;
    std::shared_ptr<EvernoteHTMLExportOperation> m_run;
};
