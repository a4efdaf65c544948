// SPDX-License-Identifier: MIT
// enex-generator KIND FILE [--notes N] [--bytes N] [--seed N]: writes an ENEX file of this kind
// until it holds so many notes or so many bytes, whichever comes first; the same arguments give the
// same file.
#include "bench/generator/NoteWriter.h"

#include <QFile>
#include <QtGlobal>

#include <cstdio>
#include <limits>

namespace {

struct Arguments {
    std::optional<bench::NotebookKind> kind;
    QByteArray path;
    qint64 notes = std::numeric_limits<qint64>::max();
    qint64 bytes = std::numeric_limits<qint64>::max();
    quint64 seed = 1;
    bool areUnderstood = true;
};

Arguments read(int argc, char** argv)
{
    Arguments arguments;
    if (argc < 3) {
        arguments.areUnderstood = false;
        return arguments;
    }
    arguments.kind = bench::notebookKind(argv[1]);
    arguments.path = argv[2];
    for (int i = 3; i < argc; i += 2) {
        const QByteArray option = argv[i];
        bool isNumber = false;
        const qint64 value = i + 1 < argc ? QByteArray(argv[i + 1]).toLongLong(&isNumber) : 0;
        if (!isNumber || value < 0)
            arguments.areUnderstood = false;
        else if (option == "--notes")
            arguments.notes = value;
        else if (option == "--bytes")
            arguments.bytes = value;
        else if (option == "--seed")
            arguments.seed = static_cast<quint64>(value);
        else
            arguments.areUnderstood = false;
    }
    const bool hasEnd = arguments.notes != std::numeric_limits<qint64>::max() ||
                        arguments.bytes != std::numeric_limits<qint64>::max();
    arguments.areUnderstood = arguments.areUnderstood && arguments.kind && hasEnd;
    return arguments;
}

} // namespace

int main(int argc, char** argv)
{
    const Arguments arguments = read(argc, argv);
    if (!arguments.areUnderstood) {
        std::fputs("usage: enex-generator mixed|text|images|small|huge|clips FILE"
                   " --notes N | --bytes N [--seed N]\n",
                   stderr);
        return 2;
    }
    QFile file(QFile::decodeName(arguments.path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "enex-generator: %s: %s\n", arguments.path.constData(),
                     qPrintable(file.errorString()));
        return 1;
    }
    bench::NoteWriter writer(*arguments.kind, arguments.seed);
    const QByteArray footer = bench::NoteWriter::footer();
    file.write(bench::NoteWriter::header());
    qint64 count = 0;
    while (count < arguments.notes && file.pos() + footer.size() < arguments.bytes)
        file.write(writer.note(count++));
    file.write(footer);
    if (!file.flush() || file.error() != QFile::NoError) {
        std::fprintf(stderr, "enex-generator: %s: %s\n", arguments.path.constData(),
                     qPrintable(file.errorString()));
        return 1;
    }
    std::printf("%lld notes, %lld bytes\n", static_cast<long long>(count),
                static_cast<long long>(file.size()));
    return 0;
}
