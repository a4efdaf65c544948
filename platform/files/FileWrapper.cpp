// SPDX-License-Identifier: MIT
#include "platform/files/FileWrapper.h"

#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

QString comparableName(const QString& name)
{
    return name.normalized(QString::NormalizationForm_D).toCaseFolded();
}

} // namespace

FileWrapper::Pointer FileWrapper::regularFile(const QByteArray& contents,
                                              const QString& preferredName)
{
    const Pointer wrapper(new FileWrapper);
    wrapper->m_contents = contents;
    wrapper->m_preferredFilename = preferredName;
    return wrapper;
}

FileWrapper::Pointer FileWrapper::directory(const QString& preferredName)
{
    const Pointer wrapper(new FileWrapper);
    wrapper->m_isDirectory = true;
    wrapper->m_preferredFilename = preferredName;
    return wrapper;
}

FileWrapper::Pointer FileWrapper::fileOnDisk(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    struct stat status = {};
    int failure = native ? 0 : EINVAL;
    if (native &&
        (::lstat(native->constData(), &status) != 0 || ::access(native->constData(), R_OK) != 0))
        failure = errno;
    else if (native && !S_ISREG(status.st_mode))
        failure = S_ISDIR(status.st_mode) ? EISDIR : ENOTSUP;
    if (failure != 0) {
        setError(error, fileError(FileAccess::Read, path, failure));
        return nullptr;
    }
    const Pointer wrapper(new FileWrapper);
    wrapper->m_pathOnDisk = path;
    wrapper->m_preferredFilename = QFileInfo(path).fileName();
    return wrapper;
}

FileWrapper::~FileWrapper()
{
    // A tree may be deeper than the stack: what only this folder holds is taken out before it dies.
    m_childrenByKey.clear();
    std::vector<Child> dying = std::move(m_children);
    while (!dying.empty()) {
        const Pointer wrapper = std::move(dying.back().wrapper);
        dying.pop_back();
        if (wrapper.use_count() > 1)
            continue;
        wrapper->m_childrenByKey.clear();
        std::move(wrapper->m_children.begin(), wrapper->m_children.end(),
                  std::back_inserter(dying));
        wrapper->m_children.clear();
    }
}

QByteArray FileWrapper::contents(Error* error) const
{
    if (m_pathOnDisk.isEmpty())
        return m_contents;
    return readFile(m_pathOnDisk, error).value_or(QByteArray());
}

void FileWrapper::addChild(const QString& key, const Pointer& child)
{
    m_children.push_back({key, child});
    m_childrenByKey.insert(key, child);
    m_takenNames.insert(comparableName(key));
}

QString FileWrapper::addFileWrapper(const Pointer& child)
{
    const QString name = child->m_preferredFilename;
    QString key = name;
    if (m_takenNames.contains(comparableName(name))) {
        int& number = m_nextNumberByName[name];
        do
            key = QString::number(++number) + QStringLiteral("__#$!@%!#__") + name;
        while (m_takenNames.contains(comparableName(key)));
    }
    addChild(key, child);
    return key;
}

void FileWrapper::removeFileWrapper(const QString& key)
{
    std::erase_if(m_children, [&](const Child& child) { return child.key == key; });
    m_childrenByKey.remove(key);
    m_takenNames.remove(comparableName(key));
    m_nextNumberByName.clear();
}

} // namespace platform
