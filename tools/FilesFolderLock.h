// SPDX-License-Identifier: MIT
#pragma once

#include <QLockFile>

#include <memory>

// Keeps runs apart that share a files folder: each begins by removing what lies there.
class FilesFolderLock {
public:
    // temporary: the folder that holds the files folder. into: where the runs import, for people.
    // False with a sentence when another process runs there, or nothing can be written.
    [[nodiscard]] bool acquire(const QString& temporary, const QString& into, QString* problem);

    void release() { m_file = nullptr; }

    // A process holds one on the folder, or did until it was killed.
    [[nodiscard]] static bool isIn(const QString& temporary);

private:
    std::unique_ptr<QLockFile> m_file;
};
