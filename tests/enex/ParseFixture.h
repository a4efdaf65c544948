// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLParseOperation.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

// What a note held at its end.
struct SeenNote {
    QString title;
    QByteArray content;
    std::optional<QDateTime> created;
    std::optional<QDateTime> updated;
    QStringList tags;
    QString source;
    QString sourceURL;
    EvernoteXMLNote::Resources resources;
    QUrl directory;
    platform::manifest::Record group;
    NoteCounts counts;
    QString identifier;
};

class SeeingNote : public EvernoteXMLNote {
public:
    using Conversion =
        std::function<platform::manifest::Record(const QString& title, platform::Error*)>;

    SeeingNote(const QUrl& directory, std::vector<SeenNote>& seen, Conversion conversion)
        : EvernoteXMLNote(directory)
        , m_seen(seen)
        , m_conversion(std::move(conversion))
    {
    }

    platform::manifest::Record itemDictInGroup(const platform::manifest::Record& group,
                                               platform::Error* error) override
    {
        m_seen.push_back({title(), contentData(), created(), updated(), tags(),
                          noteAttributes().source(), noteAttributes().sourceURL(), resources(),
                          directoryURL(), group, counts(), identifier()});
        return m_conversion(title(), error);
    }

private:
    std::vector<SeenNote>& m_seen;
    Conversion m_conversion;
};

// Every test runs with the usual chunks and with chunks of one byte.
class ParseFixture : public ::testing::TestWithParam<qsizetype> {
protected:
    void run(const QByteArray& enex)
    {
        runFile(QUrl::fromLocalFile(m_folder.write(QStringLiteral("Notebook.enex"), enex)));
    }

    void runNotes(const QByteArray& notes)
    {
        run("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + notes + "</en-export>");
    }

    void runFile(const QUrl& url)
    {
        prepare(url);
        m_operation->start();
    }

    void prepare(const QUrl& url)
    {
        m_operation = EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(
            url, m_directory, m_group);
        m_operation->setReadChunkSize(GetParam());
        m_operation->setDebugMode(m_debugMode);
        m_operation->setFileForm(m_fileForm);
        m_operation->setTimeStamps(m_timeStamps);
        m_operation->setLinkTargets(m_linkTargets);
        m_log = std::make_shared<platform::OutputStream>(m_folder.filePath("log"),
                                                         platform::OutputStream::Mode::Overwrite);
        ASSERT_TRUE(m_log->open());
        m_operation->setLogStream(m_log);
        m_operation->setItemFactory([this](const QUrl& directory) {
            return std::make_unique<SeeingNote>(directory, m_seen, m_conversion);
        });
        m_operation->setParseOperationDidExportItemBlock(
            [this](const platform::manifest::Record& record,
                   const std::optional<platform::Error>& error) {
                m_records.push_back(record);
                m_errors.push_back(error);
                m_titlesInBlock += m_operation->currentItem()->title();
                if (m_afterEachNote)
                    m_afterEachNote();
            });
        m_operation->setParseOperationCompletionBlock(
            [this](const std::optional<platform::Error>& error) {
                m_completions.push_back(error);
            });
    }

    // The log without dates.
    QStringList logLines()
    {
        QStringList lines;
        for (const QString& line : QString::fromUtf8(m_folder.read(QStringLiteral("log")))
                                       .split(u'\n', Qt::SkipEmptyParts))
            lines += line.mid(26);
        return lines;
    }

    test::ScratchFolder m_folder;
    QUrl m_directory = QUrl::fromLocalFile(QStringLiteral("/import/folder"));
    platform::manifest::Record m_group = platform::manifest::makeRecord();
    bool m_debugMode = false;
    EvernoteXMLParseOperation::FileForm m_fileForm = EvernoteXMLParseOperation::FileForm::AsWritten;
    EvernoteXMLParseOperation::TimeStamps m_timeStamps =
        EvernoteXMLParseOperation::TimeStamps::WallClock;
    std::shared_ptr<const NoteLinkTargets> m_linkTargets;
    SeeingNote::Conversion m_conversion = [](const QString& title, platform::Error*) {
        platform::manifest::Record record = platform::manifest::makeRecord();
        record->insert(QStringLiteral("name"), title);
        return record;
    };
    std::function<void()> m_afterEachNote;
    std::shared_ptr<platform::OutputStream> m_log;
    std::shared_ptr<EvernoteXMLParseOperation> m_operation;

    std::vector<SeenNote> m_seen;
    std::vector<platform::manifest::Record> m_records;
    std::vector<std::optional<platform::Error>> m_errors;
    QStringList m_titlesInBlock;
    std::vector<std::optional<platform::Error>> m_completions;
};
