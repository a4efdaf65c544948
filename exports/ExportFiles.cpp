// SPDX-License-Identifier: MIT
#include "exports/ExportFiles.h"

#include "foundation/FileNameFitting.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/ImportManifest.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <deque>

#include <unistd.h>

namespace {

const QString extension = QStringLiteral("enex");
// Bytes of UTF-8: what a folder's name may have, less a number behind it.
constexpr qsizetype longestName = 240;

bool isExport(const QFileInfo& entry)
{
    return entry.suffix().compare(extension, Qt::CaseInsensitive) == 0;
}

// The system's reason why a folder cannot be looked into; 0 when it can.
int obstacleIn(const QString& folder)
{
    return access(QFile::encodeName(folder).constData(), R_OK | X_OK) == 0 ? 0 : errno;
}

// Looks through a tree of folders, without recursion.
class Search {
public:
    explicit Search(const QString& directory)
        : m_root(QFileInfo(directory).canonicalFilePath())
    {
        m_folders.push_back({directory, {}});
    }

    [[nodiscard]] std::vector<ExportFile> run()
    {
        // Links come last, so that what they lead to is known by its own place.
        while (!m_folders.empty() || !m_linkedFolders.empty()) {
            std::deque<Folder>& next = m_folders.empty() ? m_linkedFolders : m_folders;
            const Folder folder = next.front();
            next.pop_front();
            look(folder);
        }
        for (const ExportFile& link : m_linkedFiles) {
            const QString target = QFileInfo(link.path).canonicalFilePath();
            if (target.isEmpty() || remember(target))
                m_files.push_back(link);
        }
        return std::move(m_files);
    }

private:
    struct Folder {
        QString path;
        // Of the names of what lies in it.
        QString prefix;
    };

    // False for what was met before.
    bool remember(const QString& canonicalPath)
    {
        const qsizetype before = m_met.size();
        m_met.insert(canonicalPath);
        return m_met.size() > before;
    }

    void look(const Folder& folder)
    {
        if (!remember(QFileInfo(folder.path).canonicalFilePath()))
            return;
        if (const int obstacle = obstacleIn(folder.path)) {
            m_files.push_back(
                {folder.path,
                 folder.prefix.isEmpty() ? QFileInfo(folder.path).fileName()
                                         : folder.prefix.chopped(1),
                 platform::fileError(platform::FileAccess::Read, folder.path, obstacle)});
            return;
        }
        const bool isLaidOut =
            QFileInfo(folder.path + QLatin1Char('/') + platform::manifest::fileName).isFile();
        const QFileInfoList entries =
            QDir(folder.path).entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
        for (const QFileInfo& entry : entries) {
            const QString name = folder.prefix + entry.fileName();
            if (entry.isDir()) {
                if (!isLaidOut)
                    addFolder(entry, name);
            } else if (isExport(entry)) {
                addFile(entry, name.chopped(extension.size() + 1));
            }
        }
    }

    void addFolder(const QFileInfo& entry, const QString& name)
    {
        const Folder folder{entry.filePath(), name + QLatin1Char('/')};
        if (!entry.isSymLink()) {
            m_folders.push_back(folder);
            return;
        }
        const QString target = entry.canonicalFilePath();
        const QString inside =
            target.endsWith(QLatin1Char('/')) ? target : target + QLatin1Char('/');
        const bool holdsExports = (m_root + QLatin1Char('/')).startsWith(inside);
        if (!holdsExports)
            m_linkedFolders.push_back(folder);
    }

    void addFile(const QFileInfo& entry, const QString& name)
    {
        if (entry.isSymLink()) {
            m_linkedFiles.push_back({entry.filePath(), name, {}});
            return;
        }
        remember(entry.canonicalFilePath());
        m_files.push_back({entry.filePath(), name, {}});
    }

    QString m_root;
    std::deque<Folder> m_folders;
    std::deque<Folder> m_linkedFolders;
    std::vector<ExportFile> m_files;
    std::vector<ExportFile> m_linkedFiles;
    // Folders and files, by their canonical paths.
    QSet<QString> m_met;
};

bool precedes(const ExportFile& left, const ExportFile& right)
{
    const int order = left.name.compare(right.name, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left.path < right.path;
}

// A notebook's name becomes a folder's, which the stack's name before it may make too long. The
// notebook's own name is one of a file and fits.
void makeNameFit(ExportFile& file)
{
    const qsizetype excess = file.name.toUtf8().size() - longestName;
    if (excess <= 0)
        return;
    const qsizetype slash = file.name.lastIndexOf(QLatin1Char('/'));
    const qsizetype forStack = file.name.first(slash + 1).toUtf8().size() - excess - 1;
    const QString stack =
        forStack > 0 ? fileNameFittingBytes(file.name.first(slash), forStack) + QLatin1Char('/')
                     : QString();
    file.name = stack + file.name.sliced(slash + 1);
}

// Names that differ may be one when they are made file names, as those of "a/b" and "a-b", and the
// second of the two could not be imported together with the first.
void makeNamesUnique(std::vector<ExportFile>& files)
{
    QSet<QString> taken{platform::manifest::fileName.toLower()};
    const auto take = [&taken](const QString& folderName) {
        const qsizetype before = taken.size();
        taken.insert(folderName.toLower());
        return taken.size() > before;
    };
    for (ExportFile& file : files) {
        makeNameFit(file);
        QString folderName = fileNameFromTitle(file.name);
        if (folderName.isEmpty())
            file.name = folderName = platform::localizedString("Untitled");
        if (take(folderName))
            continue;
        const QString base = fileNameFittingBytes(folderName, longestName);
        int number = 0;
        do
            file.name = base + QLatin1Char(' ') + QString::number(++number);
        while (!take(file.name));
    }
}

} // namespace

std::vector<ExportFile> exportFilesIn(const QString& directory)
{
    std::vector<ExportFile> files = Search(directory).run();
    std::sort(files.begin(), files.end(), precedes);
    makeNamesUnique(files);
    return files;
}
