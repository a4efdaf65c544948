// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <vector>

// The files that an item brings along: those attached to a note, a clipped page's resources, or the
// item itself.
class ItemFiles {
public:
    explicit ItemFiles(const QVariantMap& item);

    // Both sorted, and each for itself.
    [[nodiscard]] QByteArrayList bytes() const;
    [[nodiscard]] QStringList names() const { return m_files.keys(); }
    // Of the files with these bytes.
    [[nodiscard]] QStringList namesOf(const QByteArray& bytes) const;

private:
    void readPackage(const QString& path);
    void readArchive(const QString& path);

    QMultiMap<QString, QByteArray> m_files;
};

// What a run has laid out, by the manifest that it wrote.
class RunItems {
public:
    RunItems() = default;
    // Reads everything: the next run removes it.
    explicit RunItems(const QString& filesPath);

    // By name.
    [[nodiscard]] QStringList folders() const { return m_items.keys(); }
    // In the folder's order.
    [[nodiscard]] std::vector<QVariantMap> itemsOf(const QString& folder) const
    {
        return m_items.value(folder);
    }
    [[nodiscard]] std::vector<ItemFiles> filesOf(const QString& folder) const
    {
        return m_files.value(folder);
    }

private:
    QMap<QString, std::vector<QVariantMap>> m_items;
    QMap<QString, std::vector<ItemFiles>> m_files;
};
