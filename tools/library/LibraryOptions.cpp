// SPDX-License-Identifier: MIT
#include "tools/library/LibraryOptions.h"

#include "platform/core/Bundle.h"
#include "platform/scripting/EmbeddedLibrary.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include <QCommandLineParser>
#include <QDir>

namespace {

// A timer counts milliseconds in 31 bits.
constexpr int longestIdleTime = 2'000'000;

bool takeIdleExit(const QString& text, LibraryOptions& options, QString* problem)
{
    bool isNumber = false;
    const int seconds = text.toInt(&isNumber);
    if (!isNumber || seconds < 1 || seconds > longestIdleTime) {
        *problem = QStringLiteral("--idle-exit needs a number of seconds, from 1 to %1.")
                       .arg(longestIdleTime);
        return false;
    }
    options.idleExit = std::chrono::seconds(seconds);
    return true;
}

} // namespace

std::optional<LibraryOptions> libraryOptionsFromArguments(const QStringList& arguments,
                                                          QString* problem)
{
    const QCommandLineOption library(
        QStringLiteral("library"),
        QStringLiteral("Serve the library at <DIR>, which the first import makes."),
        QStringLiteral("DIR"));
    const QCommandLineOption name(QStringLiteral("name"),
                                  QStringLiteral("Own <NAME> on the session bus instead of %1.")
                                      .arg(platform::quillery::identifier),
                                  QStringLiteral("NAME"), platform::quillery::identifier);
    const QCommandLineOption idleExit(
        QStringLiteral("idle-exit"),
        QStringLiteral("End when nothing was asked for <SECONDS>; without this, never."),
        QStringLiteral("SECONDS"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this text."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Stands in for Quillery on the session bus: takes imports into a library folder."));
    parser.addOptions({library, name, idleExit, help, version});
    if (!parser.parse(arguments)) {
        *problem = parser.errorText();
        return std::nullopt;
    }
    LibraryOptions options;
    if (parser.isSet(help))
        options.information = parser.helpText();
    else if (parser.isSet(version))
        options.information = QStringLiteral("vupuge-library %1\n")
                                  .arg(platform::Bundle::main().shortVersionString());
    if (!options.information.isEmpty())
        return options;

    if (!parser.positionalArguments().isEmpty()) {
        *problem = QStringLiteral("\"%1\" is no option.").arg(parser.positionalArguments().first());
        return std::nullopt;
    }
    const QString directory = parser.value(library);
    if (parser.isSet(library) && directory.isEmpty()) {
        *problem = QStringLiteral("--library needs a path.");
        return std::nullopt;
    }
    options.library = directory.isEmpty() ? platform::embeddedLibraryFolder()
                                          : QDir::cleanPath(QDir().absoluteFilePath(directory));
    options.busName = parser.value(name);
    if (parser.isSet(idleExit) && !takeIdleExit(parser.value(idleExit), options, problem))
        return std::nullopt;
    return options;
}
