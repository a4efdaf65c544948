// SPDX-License-Identifier: MIT
// What the modernizer costs: reading a notebook with and without it, the notes being let go of as
// they are read. The counter "ratio" is the time with it over the time without.
#include "bench/generator/NoteWriter.h"
#include "enex/EvernoteXMLParseOperation.h"

#include <QTemporaryFile>

#include <benchmark/benchmark.h>

#include <ctime>

namespace {

using FileForm = EvernoteXMLParseOperation::FileForm;

constexpr qsizetype notebookBytes = 32 << 20;

QByteArray notebook(bench::NotebookKind kind)
{
    bench::NoteWriter writer(kind, 1);
    QByteArray file = bench::NoteWriter::header();
    for (qint64 index = 0; file.size() < notebookBytes; ++index)
        file += writer.note(index);
    return file + bench::NoteWriter::footer();
}

class ForgottenNote : public EvernoteXMLNote {
public:
    using EvernoteXMLNote::EvernoteXMLNote;

    platform::manifest::Record itemDictInGroup(const platform::manifest::Record& group,
                                               platform::Error*) override
    {
        benchmark::DoNotOptimize(contentData());
        return group;
    }
};

// Seconds of this thread's own time.
double ownTime()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// The time that it takes, or less than nothing when the file was not read to its end.
double readingTime(const QUrl& file, FileForm form, qint64* notes)
{
    const auto parse = EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(
        file, QUrl::fromLocalFile(QStringLiteral("/nowhere")), platform::manifest::makeRecord());
    parse->setItemFactory(
        [](const QUrl& directory) { return std::make_unique<ForgottenNote>(directory); });
    parse->setParseOperationDidExportItemBlock(
        [notes](const platform::manifest::Record&, const std::optional<platform::Error>&) {
            ++*notes;
        });
    parse->setFileForm(form);
    // The formatter that reads them as the clock's time would be most of what is measured.
    if (!qEnvironmentVariableIsSet("WALL")) parse->setTimeStamps(EvernoteXMLParseOperation::TimeStamps::UTC);
    const double start = ownTime();
    parse->start();
    return parse->operationError() ? -1 : ownTime() - start;
}

void read(benchmark::State& state, bench::NotebookKind kind)
{
    QTemporaryFile file;
    const QByteArray bytes = notebook(kind);
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        state.SkipWithError("the notebook was not written");
        return;
    }
    const QUrl url = QUrl::fromLocalFile(file.fileName());
    double asWritten = 0;
    double modern = 0;
    for (auto _ : state) {
        qint64 notesAsWritten = 0;
        qint64 notesOfModern = 0;
        const double first = readingTime(url, FileForm::AsWritten, &notesAsWritten);
        const double second = readingTime(url, FileForm::Modern, &notesOfModern);
        if (first < 0 || second < 0 || notesAsWritten == 0 || notesAsWritten != notesOfModern)
            state.SkipWithError("the notebook was not read");
        asWritten += first;
        modern += second;
        state.SetIterationTime(second);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
    state.counters["ratio"] = asWritten > 0 ? modern / asWritten : 0;
}

BENCHMARK_CAPTURE(read, mixed, bench::NotebookKind::Mixed)->UseManualTime();
BENCHMARK_CAPTURE(read, text, bench::NotebookKind::Text)->UseManualTime();
BENCHMARK_CAPTURE(read, images, bench::NotebookKind::Images)->UseManualTime();
BENCHMARK_CAPTURE(read, small, bench::NotebookKind::Small)->UseManualTime();

} // namespace
