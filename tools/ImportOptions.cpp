// SPDX-License-Identifier: MIT
#include "tools/ImportOptions.h"

#include "platform/core/Bundle.h"

#include <QCommandLineParser>
#include <QDir>

#include <algorithm>

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

// False with a sentence where the options say two things at once, or nothing to do.
bool areConsistent(const ImportOptions& options, QString* problem)
{
    problem->clear();
    const bool isAboutNotebooks = options.notebooks != ImportOptions::Notebooks::None;
    if (!isAboutNotebooks && !options.evernote.isEmpty())
        *problem = QStringLiteral("--evernote needs --notebooks or --list-notebooks.");
    else if (!isAboutNotebooks && options.files.isEmpty())
        *problem = QStringLiteral("No file to import.");
    else if (options.notebooks == ImportOptions::Notebooks::List && !options.notebookNames.isEmpty())
        *problem = QStringLiteral("--list-notebooks lists all notebooks and takes no names.");
    else if (isAboutNotebooks && options.exact)
        *problem = QStringLiteral("--exact is for files, not for notebooks.");
    else if (options.exact && options.setsKey(QStringLiteral("ModernENEX")))
        *problem = QStringLiteral("--exact and --set ModernENEX exclude each other.");
    else if (!options.filesFolder.isEmpty() && !options.library.isEmpty())
        *problem = QStringLiteral("--files-folder and --library exclude each other.");
    return problem->isEmpty();
}

} // namespace

bool ImportOptions::setsKey(const QString& key) const
{
    return std::any_of(settings.begin(), settings.end(),
                       [&key](const QPair<QString, QVariant>& setting) { return setting.first == key; });
}

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
    const QCommandLineOption notebooks(
        QStringLiteral("notebooks"),
        QStringLiteral("Import notebooks of Evernote instead of files: those named, or all."));
    const QCommandLineOption listNotebooks(
        QStringLiteral("list-notebooks"),
        QStringLiteral("List the notebooks of Evernote with the number of their notes."));
    const QCommandLineOption evernote(
        QStringLiteral("evernote"),
        QStringLiteral("Take the ENEX files in <DIR> for the notebooks of Evernote, folders in it for stacks. "
                       "Otherwise Evernote is asked where it is installed, else the folder of the setting "
                       "EvernoteExportsFolder is taken."),
        QStringLiteral("DIR"));
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
    const QCommandLineOption exact(
        QStringLiteral("exact"),
        QStringLiteral("Read every file as it stands. Otherwise a file of today's Evernote is read with the "
                       "setting ModernENEX on, unless --set says NO."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this text."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Imports Evernote's ENEX files into Quillery."));
    parser.addPositionalArgument(
        QStringLiteral("FILE.enex"),
        QStringLiteral("The files to import, or with --notebooks the names of notebooks; one run each."),
        QStringLiteral("[FILE.enex… | --notebooks [NAME…]]"));
    parser.addOptions({notebooks, listNotebooks, evernote, filesFolder, library, set, report, strict, exact, help, version});

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

    for (const QCommandLineOption& folder : {filesFolder, library, report, evernote}) {
        if (parser.isSet(folder) && parser.value(folder).isEmpty()) {
            *problem = QStringLiteral("--%1 needs a path.").arg(folder.names().constFirst());
            return std::nullopt;
        }
    }
    if (parser.isSet(notebooks) && parser.isSet(listNotebooks)) {
        *problem = QStringLiteral("--notebooks and --list-notebooks exclude each other.");
        return std::nullopt;
    }
    if (parser.isSet(notebooks))
        options.notebooks = ImportOptions::Notebooks::Import;
    else if (parser.isSet(listNotebooks))
        options.notebooks = ImportOptions::Notebooks::List;
    (options.notebooks == ImportOptions::Notebooks::None ? options.files : options.notebookNames)
        = parser.positionalArguments();
    options.evernote = absolute(parser.value(evernote));
    options.filesFolder = absolute(parser.value(filesFolder));
    options.library = absolute(parser.value(library));
    options.reportPath = absolute(parser.value(report));
    options.strict = parser.isSet(strict);
    options.exact = parser.isSet(exact);
    for (const QString& setting : parser.values(set)) {
        if (!addSetting(setting, options, problem))
            return std::nullopt;
    }
    if (!areConsistent(options, problem))
        return std::nullopt;
    return options;
}
