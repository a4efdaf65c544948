// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <mutex>

// Redirects the process's standard error into a file, so that what the libraries say during a run
// stands in the run's log. May be used from any thread.
class BMXLogManager {
public:
    [[nodiscard]] static BMXLogManager& sharedManager();

    // From now on standard error is appended to the file, which is made when it is not there. A
    // second redirection replaces the first. Returns the number of the redirection; 0 when the file
    // cannot be opened, and nothing has changed then.
    quint64 redirectStandardErrorToFileAtPath(const QString& path);

    // Gives standard error back to whom it belonged before the first redirection.
    void restoreStandardError();
    // The same, unless another redirection has replaced the one of that number: a run that is
    // released late must not take the log away from the one after it.
    void endRedirection(quint64 number);

    [[nodiscard]] bool isRedirected() const;

private:
    BMXLogManager() = default;
    void restore();

    mutable std::mutex m_mutex;
    int m_original = -1; // a duplicate of the descriptor that standard error had
    quint64 m_number = 0;
};
