// SPDX-License-Identifier: MIT
// Reading a note's body as a tree: strictly, and with the repair that a broken body needs.
#include "bench/generator/NoteWriter.h"
#include "platform/xml/XMLDocument.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int bodyCount = 64;

std::vector<QByteArray> bodies(bench::NotebookKind kind)
{
    bench::NoteWriter writer(kind, 1);
    std::vector<QByteArray> all;
    for (int index = 0; index < bodyCount; ++index)
        all.push_back(bench::NoteWriter::body(writer.note(index)));
    return all;
}

void readAll(benchmark::State& state, const std::vector<QByteArray>& all)
{
    qint64 bytes = 0;
    for (auto _ : state) {
        for (const QByteArray& body : all) {
            const auto document =
                platform::XMLDocument::fromData(body, platform::XMLDocument::Tidy::Yes);
            if (!document)
                state.SkipWithError("a body was not read");
            benchmark::DoNotOptimize(document);
            bytes += body.size();
        }
    }
    state.SetBytesProcessed(bytes);
    state.SetItemsProcessed(state.iterations() * bodyCount);
}

void wellFormed(benchmark::State& state, bench::NotebookKind kind)
{
    readAll(state, bodies(kind));
}

// The way most broken bodies are broken: a line break that nobody closed.
void repaired(benchmark::State& state, bench::NotebookKind kind)
{
    std::vector<QByteArray> broken = bodies(kind);
    for (QByteArray& body : broken)
        body.replace("</en-note>", "<br></en-note>");
    readAll(state, broken);
}

BENCHMARK_CAPTURE(wellFormed, text, bench::NotebookKind::Text);
BENCHMARK_CAPTURE(wellFormed, clips, bench::NotebookKind::Clips);
BENCHMARK_CAPTURE(repaired, text, bench::NotebookKind::Text);
BENCHMARK_CAPTURE(repaired, clips, bench::NotebookKind::Clips);

} // namespace
