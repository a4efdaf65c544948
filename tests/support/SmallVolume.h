// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScratchFolder.h"

namespace test {

// A file system of its own in memory, of a given size in bytes, for what happens when a disk is full, read
// only or another one. Only the superuser can mount it: tests skip where isMounted() is false.
class SmallVolume {
public:
    explicit SmallVolume(qint64 size);
    ~SmallVolume();
    SmallVolume(const SmallVolume&) = delete;
    SmallVolume& operator=(const SmallVolume&) = delete;

    [[nodiscard]] bool isMounted() const { return m_isMounted; }
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString filePath(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] const ScratchFolder& folder() const { return m_folder; }
    [[nodiscard]] bool makeReadOnly();

private:
    ScratchFolder m_folder;
    bool m_isMounted = false;
};

} // namespace test
