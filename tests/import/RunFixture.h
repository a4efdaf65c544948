// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteXMLFileExportOperation.h"
#include "platform/operations/OperationQueue.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include "support/ScratchFolder.h"

// A Quillery that remembers what it was asked.
class RecordingQuillery : public platform::QuilleryApplication {
public:
    explicit RecordingQuillery(QString version = QStringLiteral("3.5.3"))
        : m_version(std::move(version))
    {
    }

    QString version() override { return m_version; }
    void activate() override { calls += QStringLiteral("activate"); }
    bool importFiles(const QStringList& paths, ImportMode by, const QString& to, int withRating, const QString& withComments,
                     int withLabel, const QStringList& withTags, platform::Error* error) override;

    QStringList calls;
    QStringList importedPaths;
    ImportMode mode = {};
    bool optionsWereEmpty = false;
    // What it answers an import with, where it fails.
    std::optional<platform::Error> failure;

private:
    QString m_version;
};

// A machine with the editions of Quillery that a test installs or starts.
class RecordingBridge : public platform::ScriptingBridge {
public:
    bool isRunning(const QString& bundleIdentifier) override;
    std::shared_ptr<platform::QuilleryApplication> runningQuillery(const QString& bundleIdentifier) override;
    std::shared_ptr<platform::QuilleryApplication> installedQuillery(const QString& bundleIdentifier) override;

    // A null application runs but cannot be reached.
    QMap<QString, std::shared_ptr<RecordingQuillery>> running;
    QMap<QString, std::shared_ptr<RecordingQuillery>> installed;
    QStringList askedForInstalled;
};

// Writes down every report, and checks that it arrives on the main thread.
class RecordingDelegate : public EvernoteExportOperationDelegate {
public:
    void exportOperationDidStart(EvernoteExportOperation& operation) override;
    void exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation& operation, quint64 count,
                                                      const QString& name) override;
    void exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation& operation, quint64 count,
                                                       const QUrl& url) override;
    void exportOperationDidExportRecord(EvernoteExportOperation& operation) override;
    void exportOperationDidEncounterError(EvernoteExportOperation& operation,
                                          const std::optional<platform::Error>& error) override;
    void exportOperationDidCancel(EvernoteExportOperation& operation) override;
    void exportOperationDidEnd(EvernoteExportOperation& operation) override;

    // Such as "will 3 Notebook", "record", "error 10004", "error none", "cancel", "end".
    QStringList reports;
    std::vector<std::optional<platform::Error>> errors;
    std::function<void()> onRecord;

private:
    void add(const QString& report);
};

class ImportRunTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    // Where runs lay things out: folders of this test alone.
    [[nodiscard]] RunDirectories directories() const;
    [[nodiscard]] QString filesPath() const { return m_folder.filePath("temporary/Evernote"); }
    [[nodiscard]] QString logPath() const { return m_folder.filePath("support/Quillery 3/Logs/Evernote Export.log"); }
    // The log's lines without their dates.
    [[nodiscard]] QStringList logLines() const;
    [[nodiscard]] QVariantMap manifest() const;
    // All records of an entity.
    [[nodiscard]] QList<QVariantMap> records(const QString& entity) const;

    void prepare(EvernoteExportOperation& operation);
    // Runs it on a queue, with the event loop, until nothing of it is left.
    void run(const std::shared_ptr<EvernoteExportOperation>& operation);
    // Imports an ENEX file of that name and content.
    std::shared_ptr<EvernoteXMLFileExportOperation> importFile(const QString& name, const QByteArray& enex);
    static QByteArray enex(const QByteArray& notes);
    static QByteArray note(const QByteArray& title, const QByteArray& body = "<en-note>text</en-note>",
                           const QByteArray& more = {});

    test::ScratchFolder m_folder;
    std::shared_ptr<RecordingQuillery> m_quillery = std::make_shared<RecordingQuillery>();
    std::shared_ptr<RecordingBridge> m_bridge = std::make_shared<RecordingBridge>();
    RecordingDelegate m_delegate;
};
