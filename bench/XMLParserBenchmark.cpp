// SPDX-License-Identifier: MIT
// Streaming an ENEX file's events, as both passes of an import do.
#include "bench/generator/NoteWriter.h"
#include "platform/xml/XMLParser.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype notebookBytes = 8 << 20;

QByteArray notebook(bench::NotebookKind kind)
{
    bench::NoteWriter writer(kind, 1);
    QByteArray file = bench::NoteWriter::header();
    for (qint64 index = 0; file.size() < notebookBytes; ++index)
        file += writer.note(index);
    return file + bench::NoteWriter::footer();
}

class Counter : public platform::XMLParserDelegate {
public:
    void parserDidEndElement(platform::XMLParser&, const QString& name) override
    {
        notes += name == QLatin1String("note");
    }
    void parserFoundCharacters(platform::XMLParser&, QUtf8StringView text) override
    {
        bytes += text.size();
    }
    void parserFoundCData(platform::XMLParser&, QByteArrayView utf8) override
    {
        bytes += utf8.size();
    }

    qint64 notes = 0;
    qint64 bytes = 0;
};

void parse(benchmark::State& state, bench::NotebookKind kind)
{
    const QByteArray file = notebook(kind);
    for (auto _ : state) {
        const auto stream = platform::InputStream::inputStreamWithData(file);
        platform::XMLParser parser(*stream);
        Counter counter;
        parser.setDelegate(&counter);
        if (!parser.parse() || counter.notes == 0)
            state.SkipWithError("the notebook was not read");
        benchmark::DoNotOptimize(counter.bytes);
        state.counters["notes"] = static_cast<double>(counter.notes);
    }
    state.SetBytesProcessed(state.iterations() * file.size());
}

BENCHMARK_CAPTURE(parse, mixed, bench::NotebookKind::Mixed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(parse, text, bench::NotebookKind::Text)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(parse, images, bench::NotebookKind::Images)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(parse, small, bench::NotebookKind::Small)->Unit(benchmark::kMillisecond);

} // namespace
