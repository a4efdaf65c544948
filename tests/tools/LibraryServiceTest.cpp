// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "tools/BlockedOutput.h"
#include "tools/BusCommandFixture.h"

#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::QuilleryApplication;
using test::CommandResult;
using test::text;
using test::waitUntil;
namespace quillery = platform::quillery;

// Keeps imports into a library waiting, as another program does that imports.
class HeldLibrary {
public:
    explicit HeldLibrary(const QString& path)
    {
        QDir().mkpath(path);
        m_directory =
            ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        EXPECT_EQ(::flock(m_directory, LOCK_EX), 0);
    }
    ~HeldLibrary() { release(); }
    HeldLibrary(const HeldLibrary&) = delete;
    HeldLibrary& operator=(const HeldLibrary&) = delete;

    void release()
    {
        if (m_directory >= 0)
            ::close(m_directory);
        m_directory = -1;
    }

private:
    int m_directory = -1;
};

class LibraryServiceTest : public test::BusCommandTest {
protected:
    // Ends by itself or fails the test.
    static CommandResult result(QProcess& process)
    {
        EXPECT_TRUE(process.waitForFinished(60000));
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    CommandResult runLibrary(const QStringList& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(text(VUPUGE_LIBRARY), arguments);
        return result(process);
    }
    static void send(QProcess& process, int signal)
    {
        ASSERT_EQ(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    }

    // A files folder of one note; its manifest.
    QString laidOut(const char* name) const
    {
        const CommandResult laid = run(
            {text("--files-folder"), text(name), file(text(name) + text(".enex"), note("One"))});
        EXPECT_EQ(laid.status, 0) << qPrintable(laid.errors);
        return path(name) + text("/Evernote/Evernote.qllibxml");
    }
    // Asks for an import on a thread of its own.
    struct Import {
        std::thread thread;
        Error error;
        bool isTaken = false;
    };
    std::unique_ptr<Import> import(const QString& manifest) const
    {
        auto import = std::make_unique<Import>();
        import->thread = std::thread([this, manifest, result = import.get()] {
            result->isTaken
                = quillery().importFiles({manifest}, QuilleryApplication::ImportMode::Copy, {}, 0,
                                         {}, 0, {}, &result->error);
    });
    return import;
}
// The file that stands open while the program waits for its library says that the import is under
// way.
[[nodiscard]] bool
isImporting(const QProcess& service) const
{
    const QDir files(text("/proc/%1/fd").arg(service.processId()));
    for (const QFileInfo& entry : files.entryInfoList(QDir::AllEntries | QDir::System)) {
        if (entry.symLinkTarget() == path("lib"))
            return true;
    }
    return false;
}
}; // namespace

TEST_F(LibraryServiceTest, TheBusStartsItAndItServesItsLibrary)
{
    startBus({{quillery::identifier, libraryCommand()}});
    EXPECT_FALSE(isOwned(quillery::identifier));
    auto application = quillery();
    EXPECT_EQ(application.version(), text("3.5.3"));
    EXPECT_EQ(application.libraryFolder(), path("lib"));
    EXPECT_TRUE(isOwned(quillery::identifier));
    EXPECT_FALSE(exists("lib"));
    const auto taken = import(laidOut("one"));
    taken->thread.join();
    EXPECT_TRUE(taken->isTaken) << qPrintable(taken->error.description());
    EXPECT_TRUE(exists("lib/one/One.qlnote"));
    EXPECT_FALSE(exists("one/Evernote"));
}

TEST_F(LibraryServiceTest, ItServesTheLibraryOfTheSettingsElseTheOneInTheDocuments)
{
    startBus({{quillery::identifier, {text(VUPUGE_LIBRARY)}},
              {quillery::storeIdentifier,
               {text(VUPUGE_LIBRARY), text("--name"), quillery::storeIdentifier}}});
    auto application = quillery();
    EXPECT_EQ(application.version(), text("3.5.3"));
    EXPECT_EQ(application.libraryFolder(), QDir::homePath() + text("/Documents/Quillery Library"));

    const QString settings =
        qEnvironmentVariable("XDG_CONFIG_HOME") + text("/com.brightmoor.Vupuge.plist");
    QDir().mkpath(QFileInfo(settings).path());
    ASSERT_TRUE(platform::writePropertyList(
        settings, QVariantMap{{text("QuilleryLibraryFolder"), path("set")}},
        platform::PropertyListFormat::Xml));
    platform::DBusQuilleryApplication other(connect(), quillery::storeIdentifier);
    EXPECT_EQ(other.version(), text("3.5.3"));
    EXPECT_EQ(other.libraryFolder(), path("set"));
    QFile::remove(settings);
}

TEST_F(LibraryServiceTest, ATakenNameIsAFailureThatSaysSo)
{
    startBus();
    startService({text("quillery")});
    const CommandResult second = runLibrary({text("--library"), text("lib")});
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.errors,
              text("vupuge-library: Another program already is com.brightmoor.Quillery3.\n"));
    EXPECT_FALSE(exists("lib"));
}

TEST_F(LibraryServiceTest, WithoutABusItFailsAndSaysSo)
{
    const CommandResult result = runLibrary({text("--library"), text("lib")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, text("vupuge-library: There is no session bus.\n"));
}

TEST_F(LibraryServiceTest, ANameThatTheBusDoesNotAllowFailsAndSaysSo)
{
    startBus();
    for (const char* name : {"nodot", ":1.5", "org.freedesktop.DBus", ""}) {
        const CommandResult result = runLibrary({text("--name"), text(name)});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_TRUE(result.errors.startsWith(text("vupuge-library: ")))
            << qPrintable(result.errors);
    }
}

TEST_F(LibraryServiceTest, WrongUsageSaysWhatIsWrong)
{
    const QList<QPair<QStringList, const char*>> cases{
        {{text("--no-such-option")}, "no-such-option"},
        {{text("file.enex")}, "file.enex"},
        {{text("--library"), text("")}, "needs a path"},
        {{text("--idle-exit"), text("0")}, "seconds"},
        {{text("--idle-exit"), text("-5")}, "seconds"},
        {{text("--idle-exit"), text("soon")}, "seconds"},
        {{text("--idle-exit"), text("99999999999")}, "seconds"}};
    for (const auto& [arguments, message] : cases) {
        const CommandResult result = runLibrary(arguments);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_TRUE(result.errors.contains(text(message))) << qPrintable(result.errors);
        EXPECT_TRUE(result.errors.contains(text("--help")));
    }
}

TEST_F(LibraryServiceTest, HelpAndVersionSucceed)
{
    EXPECT_TRUE(runLibrary({text("--help")}).output.contains(text("--idle-exit")));
    const CommandResult version = runLibrary({text("--version")});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, text("vupuge-library 3.5.3\n"));
}

TEST_F(LibraryServiceTest, ARequestToTerminateEndsItInOrder)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        startBus();
        QProcess& service = startLibrary();
        send(service, signal);
        const CommandResult ended = result(service);
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.errors, QString());
        EXPECT_FALSE(isOwned(quillery::identifier));
    }
}

TEST_F(LibraryServiceTest, WhenItIsToEndTheImportUnderWayIsFinishedAndTheNextOneRefused)
{
    startBus();
    HeldLibrary held(path("lib"));
    QProcess& service = startLibrary();
    const QString firstManifest = laidOut("first");
    const QString secondManifest = laidOut("second");
    const auto first = import(firstManifest);
    ASSERT_TRUE(waitUntil([&] { return isImporting(service); }));
    const auto second = import(secondManifest);
    send(service, SIGTERM);
    ASSERT_TRUE(waitUntil([&] { return !isOwned(quillery::identifier); }));
    EXPECT_EQ(service.state(), QProcess::Running);
    held.release();
    first->thread.join();
    second->thread.join();
    EXPECT_TRUE(first->isTaken) << qPrintable(first->error.description());
    EXPECT_TRUE(exists("lib/first/One.qlnote"));
    // Refused, or too late to be heard at all, as the signal may come first.
    EXPECT_FALSE(second->isTaken);
    EXPECT_FALSE(second->error.isNull());
    EXPECT_TRUE(QFileInfo::exists(secondManifest));
    EXPECT_FALSE(exists("lib/second"));
    EXPECT_EQ(result(service).status, 0);
}

TEST_F(LibraryServiceTest, ASecondRequestEndsItAtOnceAndTheImportIsFinishedAtTheNextStart)
{
    startBus();
    HeldLibrary held(path("lib"));
    QProcess& service = startLibrary();
    const QString manifest = laidOut("first");
    const auto first = import(manifest);
    ASSERT_TRUE(waitUntil([&] { return isImporting(service); }));
    send(service, SIGTERM);
    ASSERT_TRUE(waitUntil([&] { return !test::catchesSignal(service, SIGTERM); }));
    send(service, SIGTERM);
    EXPECT_EQ(result(service).status, -1);
    first->thread.join();
    EXPECT_FALSE(first->isTaken);
    EXPECT_TRUE(QFileInfo::exists(manifest));
    held.release();
    startLibrary();
    const auto again = import(manifest);
    again->thread.join();
    EXPECT_TRUE(again->isTaken);
    EXPECT_TRUE(exists("lib/first/One.qlnote"));
}

TEST_F(LibraryServiceTest, ItEndsWhenNothingIsAskedAndNoCallIsLostOverIt)
{
    startBus({{quillery::identifier, libraryCommand({text("--idle-exit"), text("1")})}});
    for (int count = 0; count < 10; ++count) {
        auto application = quillery();
        EXPECT_EQ(application.version(), text("3.5.3")) << count;
        // Around the time at which it ends.
        std::this_thread::sleep_for(std::chrono::milliseconds(960 + 10 * count));
    }
    EXPECT_TRUE(waitUntil([this] { return !isOwned(quillery::identifier); }));
}

TEST_F(LibraryServiceTest, AnImportIsNoIdleTime)
{
    startBus();
    HeldLibrary held(path("lib"));
    QProcess& service = startLibrary({text("--idle-exit"), text("1")});
    const auto first = import(laidOut("first"));
    ASSERT_TRUE(waitUntil([&] { return isImporting(service); }));
    EXPECT_FALSE(service.waitForFinished(2500));
    held.release();
    first->thread.join();
    EXPECT_TRUE(first->isTaken) << qPrintable(first->error.description());
    EXPECT_EQ(result(service).status, 0);
}

TEST_F(LibraryServiceTest, WhenTheBusDiesTheImportUnderWayIsFinishedAndItEnds)
{
    startBus();
    HeldLibrary held(path("lib"));
    QProcess& service = startLibrary();
    const auto first = import(laidOut("first"));
    ASSERT_TRUE(waitUntil([&] { return isImporting(service); }));
    m_bus->kill();
    first->thread.join();
    EXPECT_FALSE(first->isTaken);
    held.release();
    EXPECT_EQ(result(service).status, 0);
    EXPECT_TRUE(exists("lib/first/One.qlnote"));
    EXPECT_FALSE(exists("first/Evernote"));
}

TEST_F(LibraryServiceTest, WhatAnInterruptedImportLeftIsFinishedBeforeAnybodyCanAsk)
{
    const QString stage = path("lib/.importing-A/0");
    ASSERT_TRUE(QDir().mkpath(stage));
    platform::LibraryCatalogue catalogue;
    catalogue.folderRecord = {{text("name"), text("Old")}};
    catalogue.items.push_back(
        {text("One.rtf"), text("Old/One.rtf"), {{text("name"), text("One")}}});
    ASSERT_TRUE(catalogue.write(stage));
    m_folder.write(text("lib/.importing-A/0/One.rtf"), "old");
    const QVariantMap journal = {{text("FilesFolder"), path("gone")},
                                 {text("RemovesFilesFolder"), true}};
    ASSERT_TRUE(platform::writePropertyList(path("lib/.importing-A/Import.plist"), journal,
                                            platform::PropertyListFormat::Binary));
    startBus({{quillery::identifier, libraryCommand()}});
    EXPECT_EQ(quillery().version(), text("3.5.3"));
    EXPECT_TRUE(exists("lib/Old/One.rtf"));
    EXPECT_FALSE(exists("lib/.importing-A"));
}

} // namespace
