// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"

#include <QTemporaryDir>

// A folder DIR that receives DIR/Evernote, with the manifest in it, and the log. Several files share it: each
// is laid out aside and then added.
class FilesFolderDestination : public ImportDestination {
public:
    explicit FilesFolderDestination(const QString& directory);

    // Refuses to replace a folder DIR/Evernote that no earlier run has made, and to read a file from it.
    [[nodiscard]] Readiness prepare(const QStringList& files, QString* problem) override;
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> bridge() override;
    [[nodiscard]] RunDirectories directories() override;
    [[nodiscard]] QStringList finishRun(RunOutcome& outcome) override;

private:
    [[nodiscard]] QString filesPath() const;
    [[nodiscard]] QString logPath() const;
    [[nodiscard]] bool madeByAnEarlierRun() const;
    [[nodiscard]] bool prepareForSeveral(platform::Error* error);
    void finishOneOfSeveral(RunOutcome& outcome);

    QString m_directory;
    // Where each of several files is laid out first, on the file system of DIR; none for a single file.
    std::unique_ptr<QTemporaryDir> m_aside;
    QByteArray m_logs;
};
