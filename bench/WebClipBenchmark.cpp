// SPDX-License-Identifier: MIT
// Clips with three images each, from the note to the archive's file: a queue's thread converts them
// while the main thread loads the pages. The processor time is of all threads. The counter is the
// growth of resident memory from the first hundred clips to the last: it stays the same whether a
// thousand clips follow or ten thousand.
#include "convert/EvernoteXMLItem.h"
#include "platform/operations/OperationQueue.h"
#include "resources/Resources.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <thread>
#include <unistd.h>

namespace {

constexpr int clipsAtATime = 100;
constexpr int imageBytes = 20000;

std::unique_ptr<EvernoteXMLItem> clip(const QString& folder, int number)
{
    auto item = std::make_unique<EvernoteXMLItem>(QUrl::fromLocalFile(folder));
    item->setTitle(QStringLiteral("Clip %1").arg(number));
    item->noteAttributes().setSource(QStringLiteral("web.clip"));
    item->noteAttributes().setSourceURL(QStringLiteral("http://example.org/%1").arg(number));
    QByteArray body = "<en-note><h1>A page</h1>";
    for (int image = 0; image < 3; ++image) {
        const auto resource = std::make_shared<EvernoteXMLResource>();
        const QByteArray bytes(imageBytes, static_cast<char>(number + image));
        resource->appendBase64Data(QUtf8StringView(bytes.toBase64()));
        resource->setMime(QStringLiteral("image/png"));
        resource->attributes().setFilename(QStringLiteral("image %1.png").arg(image));
        const QByteArray paragraph =
            "<p>" + QByteArray("a few words of text ").repeated(50) + "</p>";
        body += paragraph + "<en-media hash=\"" + resource->md5Hash().value_or(QString()).toUtf8() +
                "\"/>";
        item->addResource(resource);
    }
    item->setContentData(body + "</en-note>");
    return item;
}

// In bytes.
qint64 residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

// False when one of them became nothing.
bool convert(const std::vector<std::unique_ptr<EvernoteXMLItem>>& items)
{
    const platform::manifest::Record group = platform::manifest::makeRecord();
    group->insert(platform::manifest::groupTypeKey, platform::manifest::importedFolderGroupType);
    bool converted = true;
    platform::OperationQueue queue;
    queue.addOperationWithBlock([&] {
        for (const auto& item : items)
            converted = item->itemDictInGroup(group) && converted;
    });
    QEventLoop loop;
    std::thread waiter([&] {
        queue.waitUntilAllOperationsAreFinished();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    waiter.join();
    return converted;
}

void rebuiltClips(benchmark::State& state)
{
    int argumentCount = 1;
    char name[] = "WebClipBenchmark";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(argumentCount, arguments);
    registerResources();
    qint64 first = 0;
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QTemporaryDir folder;
        std::vector<std::unique_ptr<EvernoteXMLItem>> items;
        for (int count = 0; count < clipsAtATime; ++count)
            items.push_back(clip(folder.path(), number++));
        state.ResumeTiming();
        if (!convert(items))
            state.SkipWithError("a clip was not converted");
        state.PauseTiming();
        items.clear();
        if (first == 0)
            first = residentMemory();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * clipsAtATime);
    state.counters["grownKiB"] = static_cast<double>((residentMemory() - first) / 1024);
}

void asTheyAreMeasured(benchmark::internal::Benchmark* clips)
{
    clips->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMillisecond);
}

// A thousand clips, and ten thousand.
BENCHMARK(rebuiltClips)->Apply(asTheyAreMeasured)->Iterations(10);
BENCHMARK(rebuiltClips)->Apply(asTheyAreMeasured)->Iterations(100);

} // namespace
