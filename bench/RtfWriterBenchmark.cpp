// SPDX-License-Identifier: MIT
// Writing the rich text of a note: plain ASCII, many runs, and characters that need escapes.
#include "platform/rtfd/RtfWriter.h"

#include "bench/generator/Random.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int runCount = 400;

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

void write(benchmark::State& state, QStringView words, bool isVaried)
{
    const platform::AttributedString text = richText(words, isVaried);
    qint64 bytes = 0;
    for (auto _ : state)
        bytes += platform::rtfFromAttributedString(text).size();
    state.SetBytesProcessed(bytes);
}

BENCHMARK_CAPTURE(write, one_run, u"The lamp in the window counts the evenings.\n", false);
BENCHMARK_CAPTURE(write, many_runs, u"The lamp in the window counts the evenings.\n", true);
BENCHMARK_CAPTURE(write, escapes, u"日本語のメモ。Привет 👋 Grüße.\n", true);

} // namespace
