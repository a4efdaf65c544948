// SPDX-License-Identifier: MIT
// Laying out a note's page as text with attributes: notes of a few kilobytes, clips full of styles,
// and one page of a megabyte.
#include "bench/generator/NoteWriter.h"
#include "platform/htmlimport/HtmlImport.h"

#include <benchmark/benchmark.h>

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

void importPages(benchmark::State& state, bench::NotebookKind kind, int count)
{
    bench::NoteWriter writer(kind, 1);
    std::vector<QByteArray> pages;
    for (int index = 0; index < count; ++index)
        pages.push_back(page(bench::NoteWriter::body(writer.note(index))));
    qint64 bytes = 0;
    for (auto _ : state) {
        for (const QByteArray& html : pages) {
            const auto text = platform::attributedStringFromHtml(html, {});
            if (!text || text->isEmpty())
                state.SkipWithError("a page gave no text");
            bytes += html.size();
        }
    }
    state.SetBytesProcessed(bytes);
    state.SetItemsProcessed(state.iterations() * count);
}

BENCHMARK_CAPTURE(importPages, text, bench::NotebookKind::Text, 64);
BENCHMARK_CAPTURE(importPages, clips, bench::NotebookKind::Clips, 64);
BENCHMARK_CAPTURE(importPages, huge, bench::NotebookKind::Huge, 1);

} // namespace
