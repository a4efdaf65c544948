// SPDX-License-Identifier: MIT
// From a resource's base64 text to its bytes, and to the digest by which the body names it.
#include "enex/EvernoteXMLResource.h"

#include "bench/generator/Attachments.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype base64LineLength = 76;

QByteArray base64Text(int bytes)
{
    bench::Random random(1);
    const QByteArray encoded = bench::document(random, bytes).toBase64();
    QByteArray lines;
    for (qsizetype at = 0; at < encoded.size(); at += base64LineLength)
        lines += encoded.mid(at, base64LineLength) + '\n';
    return lines;
}

void decode(benchmark::State& state)
{
    const QByteArray text = base64Text(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        EvernoteXMLResource resource;
        resource.appendBase64Data(QUtf8StringView(text.constData(), text.size()));
        if (!resource.getContentData())
            state.SkipWithError("the text was not decoded");
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

void decodeAndDigest(benchmark::State& state)
{
    const QByteArray text = base64Text(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        EvernoteXMLResource resource;
        resource.appendBase64Data(QUtf8StringView(text.constData(), text.size()));
        if (!resource.md5Hash())
            state.SkipWithError("there is no digest");
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

BENCHMARK(decode)->Arg(100 << 10)->Arg(20 << 20);
BENCHMARK(decodeAndDigest)->Arg(100 << 10)->Arg(20 << 20);

} // namespace
