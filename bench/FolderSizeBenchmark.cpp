// SPDX-License-Identifier: MIT
// The size of a folder of many small files: FOLDER_SIZE_FILES of them, 20,000 unless told, in
// TMPDIR.
#include "foundation/FileManagerSizesBMExtensions.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int filesInAFolder = 1000;
constexpr int foldersInAFolder = 10;

// Folders of files, and folders within them, of which none holds more than the other has room for.
class Tree {
public:
    explicit Tree(int files)
        : m_left(files)
    {
        const int root = ::open(QFile::encodeName(m_folder.path()).constData(),
                                O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int depth = 1; m_left > 0; ++depth)
            fill(root, depth);
        ::close(root);
    }

    [[nodiscard]] QUrl url() const { return QUrl::fromLocalFile(m_folder.path()); }

private:
    // Folders to that depth are there already, and full.
    void fill(int folder, int depth)
    {
        if (depth == 1) {
            for (int number = 0; number < filesInAFolder && m_left > 0; ++number, --m_left) {
                const QByteArray name = "Note " + QByteArray::number(number) + ".html";
                const int file =
                    ::openat(folder, name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
                static_cast<void>(::write(file, "ten bytes.", 10));
                ::close(file);
            }
            return;
        }
        for (int number = 0; number < foldersInAFolder && m_left > 0; ++number) {
            const QByteArray name = "Notebook " + QByteArray::number(number);
            ::mkdirat(folder, name.constData(), 0700);
            const int next = ::openat(folder, name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            fill(next, depth - 1);
            ::close(next);
        }
    }

    QTemporaryDir m_folder;
    int m_left;
};

void sizeOfAFolder(benchmark::State& state)
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("FOLDER_SIZE_FILES", &isGiven);
    const int files = isGiven ? given : 20'000;
    static const Tree tree(files); // made once: this function runs several times
    for (auto _ : state) {
        if (sizeOfFileAtURL(tree.url()) != quint64(files) * 10)
            state.SkipWithError("the size is wrong");
    }
    struct rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    state.counters["files"] = files;
    state.counters["files/s"] =
        benchmark::Counter(double(files), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["peak KB of the process"] = double(usage.ru_maxrss);
}

BENCHMARK(sizeOfAFolder)->Unit(benchmark::kMillisecond);

} // namespace
