// SPDX-License-Identifier: MIT
#include "tools/ImportOptions.h"

#include "platform/core/Bundle.h"

#include <QCommandLineParser>
#include <QDir>

namespace {

QString absolute(const QString& path)
{
    return path.isEmpty() ? QString() : QDir::cleanPath(QDir().absoluteFilePath(path));
}

bool addSetting(const QString& text, ImportOptions& options, QString* problem)
{
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    if (equals <= 0) {
        *problem = QStringLiteral("--set needs KEY=VALUE, not \"%1\".").arg(text);
        return false;
    }
    options.settings += {text.first(equals), settingValueFromText(text.sliced(equals + 1))};
    return true;
}

} // namespace

QVariant settingValueFromText(const QString& text)
{
    if (text == QLatin1String("YES"))
        return true;
    if (text == QLatin1String("NO"))
        return false;
    bool isNumber = false;
    const qlonglong integer = text.toLongLong(&isNumber);
    if (isNumber)
        return integer;
    const double real = text.toDouble(&isNumber);
    // The words for infinity and for no number are words.
    if (isNumber && qIsFinite(real))
        return real;
    return text;
}

std::optional<ImportOptions> importOptionsFromArguments(const QStringList& arguments, QString* problem)
{
    const QCommandLineOption filesFolder(
        QStringLiteral("files-folder"),
        QStringLiteral("Lay everything out in <DIR>/Evernote and leave it there; the log goes into <DIR>."),
        QStringLiteral("DIR"));
    const QCommandLineOption library(
        QStringLiteral("library"),
        QStringLiteral("Import into the library at <DIR>, which is made when it is not there."),
        QStringLiteral("DIR"));
    const QCommandLineOption set(
        QStringLiteral("set"),
        QStringLiteral("Use another value of a setting for this run: YES, NO, a number or text. "
                       "Can be repeated."),
        QStringLiteral("KEY=VALUE"));
    const QCommandLineOption report(QStringLiteral("report"),
                                    QStringLiteral("Write what became of every note into <FILE>, as JSON."),
                                    QStringLiteral("FILE"));
    const QCommandLineOption strict(QStringLiteral("strict"),
                                    QStringLiteral("Exit with 3 when a note was skipped."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this text."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Imports Evernote's ENEX files into Quillery."));
    parser.addPositionalArgument(QStringLiteral("FILE.enex"),
                                 QStringLiteral("The files to import, one run each."),
                                 QStringLiteral("FILE.enex…"));
    parser.addOptions({filesFolder, library, set, report, strict, help, version});

    if (!parser.parse(arguments)) {
        *problem = parser.errorText();
        return std::nullopt;
    }
    ImportOptions options;
    if (parser.isSet(help))
        options.information = parser.helpText();
    else if (parser.isSet(version))
        options.information
            = QStringLiteral("vupuge-import %1\n").arg(platform::Bundle::main().shortVersionString());
    if (!options.information.isEmpty())
        return options;

    for (const QCommandLineOption& folder : {filesFolder, library, report}) {
        if (parser.isSet(folder) && parser.value(folder).isEmpty()) {
            *problem = QStringLiteral("--%1 needs a path.").arg(folder.names().constFirst());
            return std::nullopt;
        }
    }
    options.files = parser.positionalArguments();
    options.filesFolder = absolute(parser.value(filesFolder));
    options.library = absolute(parser.value(library));
    options.reportPath = absolute(parser.value(report));
    options.strict = parser.isSet(strict);
    for (const QString& setting : parser.values(set)) {
        if (!addSetting(setting, options, problem))
            return std::nullopt;
    }
    if (options.files.isEmpty()) {
        *problem = QStringLiteral("No file to import.");
        return std::nullopt;
    }
    if (!options.filesFolder.isEmpty() && !options.library.isEmpty()) {
        *problem = QStringLiteral("--files-folder and --library exclude each other.");
        return std::nullopt;
    }
    return options;
}
