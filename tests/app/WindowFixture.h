// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "app/EvernoteExportPanel.h"
#include "app/MainWindow.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"
#include "platform/scripting/QuilleryLibraryFolder.h"
#include "support/ScratchFolder.h"

#include <QtTest/QTest>

#include <QAbstractButton>
#include <QLabel>

#include <condition_variable>
#include <mutex>

namespace test {

class FakeNotebook : public platform::EvernoteNotebook {
public:
    FakeNotebook(QString name, std::size_t notes)
        : m_name(std::move(name))
        , m_notes(notes)
    {
    }
    [[nodiscard]] QString name() override { return m_name; }
    [[nodiscard]] std::vector<std::shared_ptr<platform::EvernoteNote>> notes() override
    {
        return std::vector<std::shared_ptr<platform::EvernoteNote>>(m_notes);
    }

private:
    QString m_name;
    std::size_t m_notes;
};

class FakeEvernote : public platform::EvernoteApplication {
public:
    explicit FakeEvernote(QString version = QStringLiteral("10.2"))
        : m_version(std::move(version))
    {
    }
    [[nodiscard]] QString version() override { return m_version; }
    void activate() override { ++activations; }
    [[nodiscard]] std::vector<std::shared_ptr<platform::EvernoteNotebook>> notebooks() override
    {
        ++listings;
        return listed;
    }
    bool exportNotes(const std::vector<std::shared_ptr<platform::EvernoteNote>>&, const QString&,
                     ExportTags, ExportFormat, platform::Error*) override
    {
        return false;
    }
    void add(const QString& name, std::size_t notes = 0)
    {
        listed.push_back(std::make_shared<FakeNotebook>(name, notes));
    }

    std::vector<std::shared_ptr<platform::EvernoteNotebook>> listed;
    int activations = 0;
    int listings = 0;

private:
    QString m_version;
};

// A machine on which the search for Quillery takes as long as a test wants: the run stays where it
// prepares.
class GatedBridge : public platform::EmbeddedScriptingBridge {
public:
    explicit GatedBridge(std::shared_ptr<platform::QuilleryApplication> installed)
        : EmbeddedScriptingBridge(std::move(installed))
    {
    }
    [[nodiscard]] bool isRunning(const QString& bundleIdentifier) override
    {
        std::unique_lock lock(m_mutex);
        m_opened.wait(lock, [this] { return m_isOpen; });
        return EmbeddedScriptingBridge::isRunning(bundleIdentifier);
    }
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_opened.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_isOpen = false;
};

// Whole files of notes with titles "Note 1" to "Note n".
[[nodiscard]] QByteArray enexWithNotes(int count);
[[nodiscard]] QByteArray enexWith(const QByteArray& notes);

} // namespace test

// The program's window as a person has it, in a home of its own.
class WindowFixture : public testing::Test {
protected:
    WindowFixture();
    // Lets a run that still goes on come to its end while a test's own members live.
    void TearDown() override;

    // Begins the program; with Evernote when there is one in the fixture.
    AppDelegate& launch();
    // Begins it and waits until the notebooks are listed.
    AppDelegate& launchWithNotebooks(const QStringList& names);
    // Keeps every run in its preparation until the gate opens.
    test::GatedBridge& closeGate();

    template <typename Widget = QWidget>
    [[nodiscard]] Widget* find(const char* name) const
    {
        for (QWidget* const top : QApplication::topLevelWidgets()) {
            // A sheet that is closed may not have gone yet.
            if (top->objectName() == QLatin1String(name) && top->isVisible())
                return qobject_cast<Widget*>(top);
            if (auto* const found = top->findChild<Widget*>(QLatin1String(name));
                found && found->isVisible())
                return found;
        }
        return nullptr;
    }
    [[nodiscard]] bool waitForWidget(const char* name) const;
    [[nodiscard]] bool waitUntilGone(const char* name) const;
    void click(const char* buttonName) const;
    [[nodiscard]] QString text(const char* labelName) const;

    test::ScratchFolder folder;
    std::shared_ptr<test::FakeEvernote> evernote;
    // Another one in its place.
    std::shared_ptr<platform::EvernoteApplication> otherEvernote;
    bool evernoteIsInstalled = true;
    std::shared_ptr<platform::QuilleryLibraryFolder> library;
    std::shared_ptr<test::GatedBridge> gate;
    QList<QUrl> openedURLs;
    int beeps = 0;
    std::unique_ptr<AppDelegate> app;
};
