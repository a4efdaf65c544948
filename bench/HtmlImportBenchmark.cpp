// SPDX-License-Identifier: MIT
// Laying out a note's page as text with attributes: notes of a few kilobytes, clips full of styles, one
// page of a megabyte, and the bodies of real notes. Each page is also parsed by the bare HTML parser of
// libxml2, right after its import, so that the ratio of the two holds on a machine that is busy.
#include "bench/corpus/CorpusPages.h"
#include "bench/generator/NoteWriter.h"
#include "platform/htmlimport/HtmlImport.h"

#include <benchmark/benchmark.h>

#include <libxml/HTMLparser.h>

#include <ctime>
#include <vector>

namespace {

QByteArray page(const QByteArray& body)
{
    const qsizetype start = body.indexOf("<en-note>") + qsizetype(sizeof "<en-note>" - 1);
    QByteArray content = body.mid(start, body.lastIndexOf("</en-note>") - start);
    // HTML knows the entity, XML does not.
    content.replace("&nbsp;", "&#160;");
    return "<html><head><title>Note</title></head><body>" + content + "</body></html>";
}

std::vector<QByteArray> generatedPages(bench::NotebookKind kind, int count)
{
    bench::NoteWriter writer(kind, 1);
    std::vector<QByteArray> pages;
    for (int index = 0; index < count; ++index)
        pages.push_back(page(bench::NoteWriter::body(writer.note(index))));
    return pages;
}

// Seconds of this thread's processor time.
double processorTime()
{
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void parseBare(const QByteArray& html)
{
    xmlDoc* const document = htmlReadMemory(html.constData(), static_cast<int>(html.size()), nullptr,
                                            "UTF-8",
                                            HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                                HTML_PARSE_NONET | HTML_PARSE_COMPACT);
    benchmark::DoNotOptimize(document);
    xmlFreeDoc(document);
}

void importPages(benchmark::State& state, const std::vector<QByteArray>& pages)
{
    if (pages.empty()) {
        state.SkipWithError("there are no pages");
        return;
    }
    double importSeconds = 0;
    double bareSeconds = 0;
    double bytes = 0;
    for (auto _ : state) {
        for (const QByteArray& html : pages) {
            const double start = processorTime();
            const auto text = platform::attributedStringFromHtml(html, {});
            if (!text)
                state.SkipWithError("a page gave no text");
            benchmark::DoNotOptimize(text);
            const double middle = processorTime();
            parseBare(html);
            importSeconds += middle - start;
            bareSeconds += processorTime() - middle;
            bytes += static_cast<double>(html.size());
        }
    }
    // Of processor time; MB are powers of ten.
    state.counters["import_MB/s"] = bytes / importSeconds / 1e6;
    state.counters["bare_MB/s"] = bytes / bareSeconds / 1e6;
    state.counters["ratio"] = importSeconds / bareSeconds;
    state.SetItemsProcessed(state.iterations() * static_cast<qint64>(pages.size()));
}

BENCHMARK_CAPTURE(importPages, text, generatedPages(bench::NotebookKind::Text, 64));
BENCHMARK_CAPTURE(importPages, clips, generatedPages(bench::NotebookKind::Clips, 64));
BENCHMARK_CAPTURE(importPages, huge, generatedPages(bench::NotebookKind::Huge, 1));
BENCHMARK_CAPTURE(importPages, corpus, bench::corpusPages());

} // namespace
