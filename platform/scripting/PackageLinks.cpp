// SPDX-License-Identifier: MIT
#include "platform/scripting/PackageLinks.h"

#include <climits>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

struct DueFolder {
    QByteArray path;
    int depth; // 0 for the package itself
};

bool linkStaysInside(const QByteArray& path, int depthOfItsFolder)
{
    QByteArray text(PATH_MAX, Qt::Uninitialized);
    const ssize_t length = ::readlink(path.constData(), text.data(), PATH_MAX);
    if (length <= 0 || text.startsWith('/'))
        return false;
    text.truncate(length);
    int climbs = 0;
    bool hasDescended = false;
    for (const QByteArray& component : text.split('/')) {
        if (component == "..") {
            ++climbs;
            if (hasDescended)
                return false;
        } else if (!component.isEmpty() && component != ".") {
            hasDescended = true;
        }
    }
    return climbs <= depthOfItsFolder;
}

PackageState entryState(const DueFolder& folder, const dirent& entry, std::vector<DueFolder>& due)
{
    const QByteArray path = folder.path + '/' + entry.d_name;
    unsigned char type = entry.d_type;
    if (type == DT_UNKNOWN) {
        struct stat status = {};
        if (::lstat(path.constData(), &status) != 0)
            return PackageState::Unreadable;
        type = IFTODT(status.st_mode);
    }
    if (type == DT_DIR)
        due.push_back({path, folder.depth + 1});
    const bool isSafe
        = type == DT_DIR || type == DT_REG || (type == DT_LNK && linkStaysInside(path, folder.depth));
    return isSafe ? PackageState::SelfContained : PackageState::LeadsOut;
}

} // namespace

PackageState packageState(const QString& folder)
{
    std::vector<DueFolder> due = {{QFile::encodeName(folder), 0}};
    while (!due.empty()) {
        const DueFolder next = std::move(due.back());
        due.pop_back();
        DIR* const stream = ::opendir(next.path.constData());
        if (!stream)
            return PackageState::Unreadable;
        PackageState state = PackageState::SelfContained;
        while (const dirent* const entry
               = state == PackageState::SelfContained ? ::readdir(stream) : nullptr) {
            if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
                state = entryState(next, *entry, due);
        }
        ::closedir(stream);
        if (state != PackageState::SelfContained)
            return state;
    }
    return PackageState::SelfContained;
}

} // namespace platform
