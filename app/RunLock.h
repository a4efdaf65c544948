// SPDX-License-Identifier: MIT
#pragma once

#include <QLockFile>

#include <memory>

// Keeps runs apart: all of a user's runs share one files folder, so only one process may run at a
// time.
class RunLock {
public:
    // temporary: the user's temporary directory. False while another process runs. Without a
    // temporary directory there is nothing to lock; the run itself will say so.
    [[nodiscard]] bool acquire(const QString& temporary);
    void release();

private:
    std::unique_ptr<QLockFile> m_file;
};
