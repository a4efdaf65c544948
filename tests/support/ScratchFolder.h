// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace test {

// A folder that lives as long as the object.
class ScratchFolder {
public:
    [[nodiscard]] QString path() const { return m_directory.path(); }
    [[nodiscard]] QString filePath(const QString& name) const { return m_directory.filePath(name); }
    [[nodiscard]] QString filePath(const char* name) const { return filePath(QString::fromUtf8(name)); }

    // Writes a file, making the folders that it needs, and returns its path.
    QString write(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] QByteArray read(const QString& name) const;

    // Every file and folder below, relative, sorted; folders end in "/".
    [[nodiscard]] QStringList tree() const;

private:
    QTemporaryDir m_directory;
};

// The bytes of any file; fails the test when it cannot be read.
[[nodiscard]] QByteArray readFile(const QString& path);

} // namespace test
