// SPDX-License-Identifier: MIT
// Writing the rich text of a note: plain ASCII, many runs, characters that need escapes, and the texts
// of real notes.
#include "bench/corpus/CorpusPages.h"
#include "bench/generator/Random.h"
#include "platform/htmlimport/HtmlImport.h"
#include "platform/rtfd/RtfWriter.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int runCount = 400;

using Texts = std::vector<platform::AttributedString>;

platform::AttributedString richText(QStringView words, bool isVaried)
{
    bench::Random random(1);
    platform::AttributedString text;
    for (int i = 0; i < runCount; ++i) {
        platform::TextAttributes attributes;
        attributes.font = platform::Font{QStringLiteral("Helvetica"), 12};
        if (isVaried) {
            attributes.font->bold = random.oneIn(3);
            attributes.font->italic = random.oneIn(5);
            attributes.font->size = 9 + random.below(4) * 3;
            if (random.oneIn(4))
                attributes.foregroundColor = platform::Color::fromRgb8(random.below(4) * 60, 0, 90);
            if (random.oneIn(10))
                attributes.link = QStringLiteral("https://www.example.org/");
        }
        text.append(words, attributes);
    }
    return text;
}

Texts corpusTexts()
{
    Texts texts;
    for (const QByteArray& page : bench::corpusPages()) {
        if (auto text = platform::attributedStringFromHtml(page, {}))
            texts.push_back(std::move(*text));
    }
    return texts;
}

// Bytes are those that come out.
void write(benchmark::State& state, const Texts& texts)
{
    if (texts.empty()) {
        state.SkipWithError("there are no texts");
        return;
    }
    qint64 bytes = 0;
    for (auto _ : state) {
        for (const platform::AttributedString& text : texts)
            bytes += platform::rtfFromAttributedString(text).size();
    }
    state.SetBytesProcessed(bytes);
}

BENCHMARK_CAPTURE(write, one_run,
                  Texts{richText(u"The lamp in the window counts the evenings.\n", false)});
BENCHMARK_CAPTURE(write, many_runs,
                  Texts{richText(u"The lamp in the window counts the evenings.\n", true)});
BENCHMARK_CAPTURE(write, escapes, Texts{richText(u"日本語のメモ。Привет 👋 Grüße.\n", true)});
BENCHMARK_CAPTURE(write, corpus, corpusTexts());

} // namespace
