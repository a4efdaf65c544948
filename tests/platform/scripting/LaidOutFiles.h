// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScratchFolder.h"

#include <QVariantMap>

namespace test {

// A files folder as a run lays it out, with the manifest that goes with it.
class LaidOutFiles {
public:
    // The folder is made; the path may lead through links.
    explicit LaidOutFiles(QString path);

    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] QString manifestPath() const { return m_path + QStringLiteral("/Evernote.qllibxml"); }

    // A folder on disk and its record; the identifier is "folder-" and the name.
    void addFolder(const QString& name);
    // A file, or with a name that ends in ".rtfd" a package of two files, whose bytes name it; and its
    // record. The identifier is "item-", the folder, "/" and the file's name.
    void addItem(const QString& folder, const QString& fileName, const QVariantMap& values = {});

    // To change what addFolder and addItem recorded.
    [[nodiscard]] QVariantMap& top() { return m_top; }
    [[nodiscard]] QVariantMap& folders() { return m_folders; }
    [[nodiscard]] QVariantMap& items() { return m_items; }
    void setItemValue(const QString& identifier, const QString& key, const QVariant& value);

    void writeManifest() const;

    // What addItem writes.
    [[nodiscard]] static QByteArray contentsOf(const QString& fileName);
    // A file or package of addItem's that is whole.
    [[nodiscard]] static bool isWhole(const QString& path, const QString& fileName);

private:
    QString m_path;
    QVariantMap m_top;
    QVariantMap m_folders;
    QVariantMap m_items;
};

} // namespace test
