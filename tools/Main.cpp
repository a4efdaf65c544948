// SPDX-License-Identifier: MIT
#include "resources/Resources.h"
#include "tools/ImportCommand.h"
#include "tools/ImportOptions.h"
#include "tools/TerminalText.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vupuge-import"));
    registerResources();
    QString problem;
    const std::optional<ImportOptions> options
        = importOptionsFromArguments(QCoreApplication::arguments(), &problem);
    if (!options) {
        printProblem(problem);
        std::fputs("Try vupuge-import --help.\n", stderr);
        return static_cast<int>(ExitStatus::WrongUsage);
    }
    if (!options->information.isEmpty()) {
        std::fputs(options->information.toUtf8().constData(), stdout);
        return static_cast<int>(ExitStatus::Success);
    }
    return static_cast<int>(ImportCommand(*options).execute());
}
