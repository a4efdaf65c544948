// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"

// A folder DIR that receives DIR/Evernote, with the manifest in it, and the log. Several files share it: each is
// laid out aside and then added.
class FilesFolderDestination : public ImportDestination {
public:
    explicit FilesFolderDestination(const QString& directory);

    // Refuses to replace a folder DIR/Evernote that no earlier run has made, and to read a file from it.
    [[nodiscard]] Readiness prepare(const ImportOptions& options, QString* problem) override;
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> bridge() override;
    [[nodiscard]] RunDirectories directories() override;
    [[nodiscard]] QStringList finishRun(RunOutcome& outcome) override;

private:
    [[nodiscard]] QString filesPath() const;
    [[nodiscard]] QString logPath() const;
    [[nodiscard]] QString asidePath() const;
    [[nodiscard]] bool madeByAnEarlierRun() const;

    QString m_directory;
    bool m_severalFiles = false;
    QByteArray m_logs;
};
