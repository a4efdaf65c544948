// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QHash>
#include <QString>

#include <optional>

namespace platform {

// Checks the files that a manifest names before any of them is touched. Each must be a file or folder within
// the files folder; neither it nor a link inside it may lead out.
class ManifestSources {
public:
    // filesFolder: canonical path. writtenAs: how the manifest writes it, through links perhaps.
    ManifestSources(QString filesFolder, const QString& writtenAs);

    enum class State {
        Whole,       // there, and safe to take
        Unavailable, // missing or unreadable: this item alone cannot be taken
        Unsafe       // would lead out of the files folder: the manifest cannot be trusted
    };
    struct Source {
        State state = State::Unsafe;
        QString relativePath; // to the files folder; empty when unsafe
        Error error;          // for the two other states
    };
    [[nodiscard]] Source check(const QString& absolutePath);

private:
    [[nodiscard]] QString relativeFolder(const QString& folder);
    [[nodiscard]] std::optional<QString> relativePathByText(const QString& absolutePath) const;

    QString m_filesFolder;
    QString m_writtenAs;
    // Canonical and relative to the files folder; null for those that lie outside or do not exist. Items
    // share few folders, so that each is looked up once.
    QHash<QString, QString> m_relativeFolders;
};

} // namespace platform
