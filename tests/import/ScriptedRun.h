// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperation.h"
#include "import/RunFixture.h"

class ScriptedNotebook : public platform::EvernoteNotebook {
public:
    ScriptedNotebook(QString name, std::size_t notes)
        : m_name(std::move(name))
        , m_notes(notes)
    {
    }
    QString name() override { return m_name; }
    std::vector<std::shared_ptr<platform::EvernoteNote>> notes() override
    {
        return std::vector<std::shared_ptr<platform::EvernoteNote>>(m_notes);
    }

private:
    QString m_name;
    std::size_t m_notes;
};

class ScriptedEvernote : public platform::EvernoteApplication {
public:
    QString version() override { return QStringLiteral("6.13"); }
    void activate() override {}
    std::vector<std::shared_ptr<platform::EvernoteNotebook>> notebooks() override { return {}; }
    bool exportNotes(const std::vector<std::shared_ptr<platform::EvernoteNote>>&, const QString&,
                     ExportTags, ExportFormat, platform::Error*) override
    {
        return false;
    }
};

// Ends every notebook as the test says.
class ScriptedRun : public EvernoteExportOperation {
public:
    std::function<std::optional<platform::Error>(ScriptedRun&, const Notebook&, const QString&,
                                                 const platform::manifest::Record&)>
        work;
    using EvernoteExportOperation::informDelegateDidStart;

    QStringList folders;

protected:
    void performExportForNotebook(const Notebook& notebook, const QString& path,
                                  const platform::manifest::Record& folder) override
    {
        folders += path;
        exportNotebookDidEnd(notebook, work ? work(*this, notebook, path, folder) : std::nullopt);
    }
};

class ScriptedRunTest : public ImportRunTest {
protected:
    void SetUp() override
    {
        ImportRunTest::SetUp();
        m_run = std::make_shared<ScriptedRun>();
        prepare(*m_run);
    }

    void runNotebooks(const QStringList& names)
    {
        std::vector<EvernoteExportOperation::Notebook> notebooks;
        for (const QString& name : names)
            notebooks.push_back(std::make_shared<ScriptedNotebook>(name, 2));
        m_run->setNotebooks(notebooks);
        run(m_run);
    }

    void useQuillery(const char* version)
    {
        m_bridge->installed = {
            {platform::quillery::identifier, std::make_shared<RecordingQuillery>(text(version))}};
    }

    std::shared_ptr<ScriptedRun> m_run;
    platform::Error m_error;
};
