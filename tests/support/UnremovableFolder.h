// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace test {

// A folder that nobody can remove while the object lives: a file system is mounted on it, or, where
// only the superuser may do that, its contents cannot be listed. Tests skip where isMade() is false.
class UnremovableFolder {
public:
    explicit UnremovableFolder(const QString& path);
    ~UnremovableFolder();
    UnremovableFolder(const UnremovableFolder&) = delete;
    UnremovableFolder& operator=(const UnremovableFolder&) = delete;

    [[nodiscard]] bool isMade() const { return m_isMounted || m_isLocked; }

private:
    QByteArray m_path;
    bool m_isMounted = false;
    bool m_isLocked = false;
};

} // namespace test
