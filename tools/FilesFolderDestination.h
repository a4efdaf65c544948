// SPDX-License-Identifier: MIT
#pragma once

#include "tools/FilesFolderLock.h"
#include "tools/FilesFolderMerge.h"
#include "tools/ImportDestination.h"

#include <QTemporaryDir>

#include <memory>

// A folder DIR that receives DIR/Evernote, with the manifest in it, and the log. What the runs lay
// out is put together aside, in a hidden folder of DIR, and takes the place of an earlier import
// whole, after the last run. Where no run gets to its end, the earlier import stays.
class FilesFolderDestination : public ImportDestination {
public:
    explicit FilesFolderDestination(const QString& directory);

    // Refuses to replace a folder DIR/Evernote that no earlier run has made, and to read a file
    // from it.
    [[nodiscard]] Readiness prepare(const QStringList& files, QString* problem) override;
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> bridge() override;
    [[nodiscard]] RunDirectories directories() override;
    [[nodiscard]] QStringList finishRun(RunOutcome& outcome) override;
    [[nodiscard]] bool finish(QStringList* places, platform::Error* error) override;

private:
    [[nodiscard]] QString filesPath() const;
    [[nodiscard]] QString logPath() const;
    [[nodiscard]] bool mayBeReplaced(QString* problem) const;
    [[nodiscard]] bool madeByAnEarlierRun() const;
    void removeWhatKilledRunsLeft() const;
    [[nodiscard]] bool makeAside(QString* problem);
    [[nodiscard]] bool putInPlace(platform::Error* error) const;
    void keepLog() const;
    void putLogsInPlace() const;

    QString m_directory;
    // On the file system of DIR.
    std::unique_ptr<QTemporaryDir> m_aside;
    // Says that the folder aside is in use.
    FilesFolderLock m_lock;
    std::unique_ptr<FilesFolderMerge> m_merge;
    // Each run begins its log anew; those of several are joined.
    bool m_joinsLogs = false;
};
