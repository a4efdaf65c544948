// SPDX-License-Identifier: MIT
// Writing a note's package to disk: a small one, and one with a picture.
#include "platform/files/FileWrapper.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

namespace {

void writePackage(benchmark::State& state)
{
    const QTemporaryDir scratch;
    const auto package = platform::FileWrapper::directory();
    const QByteArray text(4 << 10, 'x');
    const QByteArray picture(state.range(0), 'x');
    package->addFileWrapper(platform::FileWrapper::regularFile(text, QStringLiteral("TXT.rtf")));
    package->addFileWrapper(
        platform::FileWrapper::regularFile(text, QStringLiteral("NoteAttributes")));
    if (!picture.isEmpty())
        package->addFileWrapper(
            platform::FileWrapper::regularFile(picture, QStringLiteral("a.png")));
    int number = 0;
    for (auto _ : state) {
        const QString path =
            scratch.filePath(QString::number(number++) + QStringLiteral(".qlnote"));
        if (!package->writeTo(path, platform::FileWrapper::WriteMode::Atomic))
            state.SkipWithError("the package was not written");
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(writePackage)->Arg(0)->Arg(100 << 10)->Unit(benchmark::kMicrosecond);

} // namespace
