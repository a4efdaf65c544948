// SPDX-License-Identifier: MIT
#include "app/QuilleryConnection.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/EmbeddedLibrary.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryFolder.h"
#include "support/PrivateBus.h"

#include "WindowFixture.h"

#include <QDir>

namespace {

namespace quillery = platform::quillery;

class QuilleryConnectionTest : public testing::Test {
protected:
    QuilleryConnectionTest()
    {
        platform::UserDefaults::standard().setOverride(platform::embeddedLibrarySetting,
                                                       folder.filePath("embedded"));
    }
    ~QuilleryConnectionTest() override
    {
        platform::UserDefaults::standard().clearOverrides();
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }

    void startBusWithLibrary()
    {
        bus.addService(quillery::identifier,
                       {VUPUGE_LIBRARY, "--library", folder.filePath("served")});
        bus.start();
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    }

    test::ScratchFolder folder;
    test::PrivateBus bus;
    QuilleryConnection connection;
};

} // namespace

TEST_F(QuilleryConnectionTest, WithoutABusARunImportsIntoTheEmbeddedLibrary)
{
    EXPECT_EQ(connection.libraryFolder(), folder.filePath("embedded"));
    const auto bridge = connection.newBridge();
    EXPECT_FALSE(bridge->isRunning(quillery::identifier));
    const auto library = std::dynamic_pointer_cast<platform::QuilleryLibraryFolder>(
        bridge->installedQuillery(quillery::identifier));
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->directory(), folder.filePath("embedded"));
    EXPECT_EQ(connection.libraryFolder(), folder.filePath("embedded"));
}

TEST_F(QuilleryConnectionTest, AnInterruptedImportIsFinishedBeforeTheNextRunRemovesItsFiles)
{
    const QString stage = folder.filePath("embedded/.importing-A/0");
    ASSERT_TRUE(QDir().mkpath(stage));
    platform::LibraryCatalogue catalogue;
    catalogue.folderRecord = {{"name", "Old"}};
    catalogue.items.push_back({"One.rtf", "Old/One.rtf", {{"name", "One"}}});
    ASSERT_TRUE(catalogue.write(stage));
    folder.write("embedded/.importing-A/0/One.rtf", "old");
    const QVariantMap journal = {{"FilesFolder", folder.filePath("gone")},
                                 {"RemovesFilesFolder", true}};
    ASSERT_TRUE(platform::writePropertyList(folder.filePath("embedded/.importing-A/Import.plist"),
                                            journal, platform::PropertyListFormat::Binary));
    EXPECT_NE(connection.newBridge()->installedQuillery(quillery::identifier), nullptr);
    EXPECT_EQ(folder.read("embedded/Old/One.rtf"), "old");
}

TEST_F(QuilleryConnectionTest, AQuilleryOnTheBusTakesTheRunAndNamesItsLibrary)
{
    startBusWithLibrary();
    const auto bridge = connection.newBridge();
    const auto application = bridge->installedQuillery(quillery::identifier);
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application->version(), quillery::embeddedVersion);
    EXPECT_EQ(connection.libraryFolder(), folder.filePath("served"));
}

TEST_F(QuilleryConnectionTest, EachRunLooksAnew)
{
    EXPECT_NE(connection.newBridge()->installedQuillery(quillery::identifier), nullptr);
    startBusWithLibrary();
    const auto application = connection.newBridge()->installedQuillery(quillery::identifier);
    EXPECT_EQ(application->version(), quillery::embeddedVersion);
    EXPECT_EQ(connection.libraryFolder(), folder.filePath("served"));
    bus.kill();
    EXPECT_NE(connection.newBridge()->installedQuillery(quillery::identifier), nullptr);
    EXPECT_EQ(connection.libraryFolder(), folder.filePath("embedded"));
}

TEST_F(QuilleryConnectionTest, TheProgramImportsAFileOverTheBus)
{
    startBusWithLibrary();
    const QString file = folder.write("Given.enex", test::enexWithNotes(2));
    QProcess program;
    QProcessEnvironment environment = bus.environment();
    environment.insert("HOME", folder.path());
    environment.insert("XDG_CACHE_HOME", folder.filePath("cache"));
    program.setProcessEnvironment(environment);
    test::endWithTest(program);
    program.start(VUPUGE_PROGRAM, {file});
    ASSERT_TRUE(program.waitForStarted());
    const QString imported = folder.filePath("served/Given/Note 2.qlnote");
    EXPECT_TRUE(QTest::qWaitFor([&imported] { return QFileInfo::exists(imported); }, 60000));
    EXPECT_FALSE(QFileInfo::exists(folder.filePath("embedded")));
    program.kill();
    program.waitForFinished();
}
