// SPDX-License-Identifier: MIT
#include "WindowFixture.h"

#include "platform/defaults/UserDefaults.h"

namespace test {

QByteArray enexWith(const QByteArray& notes)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export "
           "export-date=\"20240501T120000Z\" application=\"Evernote\">\n" +
           notes + "</en-export>\n";
}

QByteArray enexWithNotes(int count)
{
    QByteArray notes;
    for (int number = 1; number <= count; ++number)
        notes +=
            "<note><title>Note " + QByteArray::number(number) +
            "</title><content><![CDATA[<en-note><div>Text</div></en-note>]]></content></note>\n";
    return enexWith(notes);
}

} // namespace test

WindowFixture::WindowFixture()
    : library(std::make_shared<platform::QuilleryLibraryFolder>(folder.filePath("Library")))
{
}

void WindowFixture::TearDown()
{
    if (gate)
        gate->open();
    if (app) {
        app->exportPanel().operationQueue().cancelAllOperations();
        // What a run still reports must be heard before the window goes.
        static_cast<void>(
            QTest::qWaitFor([this] { return !app->exportPanel().isRunning(); }, 20000));
    }
    app = nullptr;
    platform::UserDefaults::standard().clearOverrides();
}

AppDelegate& WindowFixture::launch()
{
    Environment environment;
    if (evernote || otherEvernote || !evernoteIsInstalled)
        environment.evernote = [this]() -> std::shared_ptr<platform::EvernoteApplication> {
            if (otherEvernote)
                return otherEvernote;
            return evernote;
        };
    environment.scriptingBridge = [this]() -> std::shared_ptr<platform::ScriptingBridge> {
        if (gate)
            return gate;
        return std::make_shared<platform::EmbeddedScriptingBridge>(library);
    };
    environment.libraryFolder = [this] {
        return library->directory();
    };
    QDir().mkpath(folder.filePath("tmp"));
    environment.directories = {folder.filePath("tmp"),
                               folder.filePath("Library-of-the-user"),
                               folder.filePath("support"),
                               {}};
    environment.beep = [this] {
        ++beeps;
    };
    environment.openURL = [this](const QUrl& url) {
        openedURLs += url;
    };
    app = std::make_unique<AppDelegate>(environment);
    app->applicationDidFinishLaunching();
    return *app;
}

AppDelegate& WindowFixture::launchWithNotebooks(const QStringList& names)
{
    evernote = std::make_shared<test::FakeEvernote>();
    for (const QString& name : names)
        evernote->add(name);
    launch();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !app->showProgressIndicator(); }));
    return *app;
}

test::GatedBridge& WindowFixture::closeGate()
{
    gate = std::make_shared<test::GatedBridge>(library);
    return *gate;
}

bool WindowFixture::waitForWidget(const char* name) const
{
    return QTest::qWaitFor([this, name] { return find(name) != nullptr; }, 15000);
}

bool WindowFixture::waitUntilGone(const char* name) const
{
    return QTest::qWaitFor([this, name] { return find(name) == nullptr; }, 15000);
}

void WindowFixture::click(const char* buttonName) const
{
    auto* const button = find<QAbstractButton>(buttonName);
    ASSERT_NE(button, nullptr) << buttonName;
    QTest::mouseClick(button, Qt::LeftButton);
}

QString WindowFixture::text(const char* labelName) const
{
    const auto* const label = find<QLabel>(labelName);
    return label ? label->text() : QStringLiteral("no such text is shown");
}
