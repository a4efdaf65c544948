// SPDX-License-Identifier: MIT
#include "platform/files/FileWrapper.h"

#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <sys/stat.h>

namespace platform {

namespace {

// Writes one tree. Paths are the system's: relative ones would cost a descriptor a level.
class TreeWriting {
public:
    struct Failure {
        int systemError = 0;
        FileAccess access = FileAccess::Write;
        QByteArray path;
    };

    [[nodiscard]] const Failure& failure() const { return m_failure; }

    bool makeFolder(const QByteArray& path)
    {
        if (::mkdir(path.constData(), system::newFolderMode) == 0)
            return true;
        m_failure = {errno, FileAccess::Write, path};
        return false;
    }

    bool writeFile(const QByteArray& path, const QByteArray& contents)
    {
        m_failure = {system::writeInPlace(path, contents), FileAccess::Write, path};
        return m_failure.systemError == 0;
    }

    bool copyFile(const QByteArray& path, const QString& bytesOnDisk)
    {
        bool isAboutSource = false;
        const QByteArray source = QFile::encodeName(bytesOnDisk);
        const int systemError = system::copyInPlace(source, path, isAboutSource);
        m_failure = {systemError, isAboutSource ? FileAccess::Read : FileAccess::Write,
                     isAboutSource ? source : path};
        return systemError == 0;
    }

    // The path of a child; none, with the failure set, for a key that is no plain file name.
    std::optional<QByteArray> childPath(const QByteArray& folder, const QString& key)
    {
        if (pathWithin(QStringLiteral("/"), key))
            return folder + '/' + QFile::encodeName(key);
        m_failure = {EINVAL, FileAccess::Write, folder + '/' + QFile::encodeName(key)};
        return std::nullopt;
    }

private:
    Failure m_failure;
};

} // namespace

bool FileWrapper::writeTo(const QString& path, WriteMode mode, Error* error) const
{
    const auto target = system::nativePath(path.isEmpty() ? path : QDir::cleanPath(path));
    if (!target) {
        setError(error, fileError(FileAccess::Write, path, EINVAL));
        return false;
    }
    const bool isAtomic = mode == WriteMode::Atomic;
    const QByteArray root = isAtomic ? system::privateSibling(*target) : *target;

    struct Due {
        const FileWrapper* wrapper;
        QByteArray path;
    };
    TreeWriting writing;
    std::vector<Due> due = {{this, root}};
    // Nothing of ours is at the target before the folder is made, so nothing there may be removed.
    const bool isBegun = !m_isDirectory || writing.makeFolder(root);
    bool isWhole = isBegun;
    while (isWhole && !due.empty()) {
        const Due next = std::move(due.back());
        due.pop_back();
        if (next.wrapper->isRegularFile()) {
            isWhole = next.wrapper->m_pathOnDisk.isEmpty()
                          ? writing.writeFile(next.path, next.wrapper->m_contents)
                          : writing.copyFile(next.path, next.wrapper->m_pathOnDisk);
            continue;
        }
        for (const Child& child : next.wrapper->m_children) {
            const auto childPath = writing.childPath(next.path, child.key);
            isWhole =
                childPath && (child.wrapper->isRegularFile() || writing.makeFolder(*childPath));
            if (!isWhole)
                break;
            due.push_back({child.wrapper.get(), *childPath});
        }
    }

    TreeWriting::Failure failure = writing.failure();
    if (isWhole && isAtomic) {
        failure = {system::replaceItem(root, *target), FileAccess::Write, root};
        isWhole = failure.systemError == 0;
    }
    if (isWhole)
        return true;
    if (isBegun && (m_isDirectory || isAtomic))
        static_cast<void>(removeItem(system::pathFromNative(root)));
    if (failure.path.startsWith(root)) // the private name would tell nobody anything
        failure.path.replace(0, root.size(), *target);
    setError(error,
             fileError(failure.access, system::pathFromNative(failure.path), failure.systemError));
    return false;
}

} // namespace platform
