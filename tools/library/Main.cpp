// SPDX-License-Identifier: MIT
#include "tools/InterruptWatcher.h"
#include "tools/library/LibraryOptions.h"
#include "tools/library/LibraryService.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr int failure = 1;
constexpr int wrongUsage = 2;

void printProblem(const QString& problem)
{
    std::fprintf(stderr, "vupuge-library: %s\n", qUtf8Printable(problem));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vupuge-library"));
    QString problem;
    const std::optional<LibraryOptions> options =
        libraryOptionsFromArguments(QCoreApplication::arguments(), &problem);
    if (!options) {
        printProblem(problem);
        std::fputs("Try vupuge-library --help.\n", stderr);
        return wrongUsage;
    }
    if (!options->information.isEmpty()) {
        std::fputs(qUtf8Printable(options->information), stdout);
        return 0;
    }
    LibraryService service(*options);
    // A second one ends the program at once; the library then finishes the import at its next
    // start.
    const InterruptWatcher watcher([&service] { service.end(); });
    if (!service.start(&problem)) {
        printProblem(problem);
        return failure;
    }
    return QCoreApplication::exec();
}
