// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <dirent.h>
#include <sys/types.h>

#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

// Sums a folder's visible files, folder by folder. No path is ever put together and no call nests,
// so the depth has no limit; streams stay open on the way down only as far as maximumOpenFolders,
// below that one folder is open at a time and the way back is "..", checked to lead where it came
// from. Memory follows the depth, and below maximumOpenFolders the names of the folders that lie
// side by side; never the number of files.
class FolderSize {
public:
    // None when the folder, or one of its immediate items, cannot be read; failure() then has the errno and
    // failedName() the item, empty for the folder itself.
    [[nodiscard]] std::optional<quint64> sizeOf(const QByteArray& path);

    [[nodiscard]] int failure() const { return m_failure; }
    [[nodiscard]] const QByteArray& failedName() const { return m_failedName; }

private:
    using Identity = std::pair<dev_t, ino_t>;
    struct Closer {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };
    using Stream = std::unique_ptr<DIR, Closer>;

    struct Level {
        Stream stream;
        Identity identity;
        std::vector<QByteArray> foldersToVisit; // only where the stream cannot stay open
        quint64 sum = 0;
    };

    // The next folder in the level's stream, after adding the files before it. None at the end and, with
    // m_failure set, when an item cannot be examined.
    [[nodiscard]] std::optional<QByteArray> nextFolder(Level& level);
    [[nodiscard]] std::optional<QByteArray> folderToVisit(Level& level);
    // A folder that cannot be entered, or that holds itself, is left out.
    void enter(const QByteArray& name);
    // Adds the sum to the level above.
    void leave(bool countsSum);
    [[nodiscard]] bool reopenFromBelow(Level& level, int descriptorBelow);
    [[nodiscard]] bool push(int descriptor);

    static constexpr size_t maximumOpenFolders = 128;

    std::vector<Level> m_levels;
    std::set<Identity> m_entered;
    quint64 m_total = 0;
    int m_failure = 0;
    QByteArray m_failedName;
};
