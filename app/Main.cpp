// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/EnexFiles.h"
#include "app/MainWindow.h"
#include "app/QuilleryConnection.h"
#include "app/Translations.h"
#include "exports/EvernoteExportsFolder.h"
#include "exports/FindEvernote.h"
#include "platform/core/Bundle.h"
#include "platform/core/LocalizedStrings.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QIcon>
#include <QTimer>

namespace {

Environment standardEnvironment()
{
    Environment environment;
    const auto quillery = std::make_shared<QuilleryConnection>();
    environment.libraryFolder = [quillery] {
        return quillery->libraryFolder();
    };
    environment.scriptingBridge = [quillery] {
        return quillery->newBridge();
    };
    // Without any Evernote the window is there for files alone.
    if (const auto evernote = findEvernote()) {
        environment.evernote = &findEvernote;
        if (const auto* const folder = dynamic_cast<const EvernoteExportsFolder*>(evernote.get()))
            environment.exportsFolder = folder->directory();
    }
    environment.beep = &QApplication::beep;
    environment.openURL = &QDesktopServices::openUrl;
    return environment;
}

QStringList filesOfCommandLine(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        platform::localizedString("Brings Evernote notes into Quillery."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        QStringLiteral("FILE.enex"),
        platform::localizedString("Files to import, and folders that hold such files."),
        QStringLiteral("[FILE.enex…]"));
    parser.process(application);
    return parser.positionalArguments();
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vupuge"));
    QCoreApplication::setApplicationVersion(platform::Bundle::main().shortVersionString());
    registerResources();
    installTranslations(QLocale());
    QGuiApplication::setApplicationDisplayName(platform::localizedString("Vupuge"));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.brightmoor.Vupuge"));
    QIcon icon(QStringLiteral(":/vupuge/icons/vupuge-256.png"));
    icon.addFile(QStringLiteral(":/vupuge/icons/vupuge-48.png"));
    QGuiApplication::setWindowIcon(icon);
    const QStringList files = filesOfCommandLine(application);

    AppDelegate delegate(standardEnvironment());
    // Within the event loop, which the launch may have to end.
    QTimer::singleShot(0, &application, [&delegate, &files] {
        delegate.applicationDidFinishLaunching();
        delegate.openURLs(urlsOfArguments(files));
    });
    return QApplication::exec();
}
