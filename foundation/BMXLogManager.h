// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Redirects the process's standard error into a file, so that what the libraries say during a run stands in
// the run's log.
class BMXLogManager {
public:
    [[nodiscard]] static BMXLogManager& sharedManager();

    // From now on standard error is appended to the file, which is made when it is not there. A second
    // redirection replaces the first. False when the file cannot be opened; nothing has changed then.
    bool redirectStandardErrorToFileAtPath(const QString& path);

    // Gives standard error back to whom it belonged before the first redirection.
    void restoreStandardError();

    [[nodiscard]] bool isRedirected() const { return m_original >= 0; }

private:
    BMXLogManager() = default;

    int m_original = -1; // a duplicate of the descriptor that standard error had
};
