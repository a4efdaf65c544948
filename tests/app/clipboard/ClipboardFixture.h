// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/Pasteboard.h"
#include "support/ScratchFolder.h"

#include <QProcess>
#include <QStringList>
#include <QWidget>

// Bookmarks as "name <address>".
[[nodiscard]] QStringList bookmarksOn(const platform::Pasteboard& pasteboard);

// A window that takes whatever is dropped on it.
class DropTarget : public QWidget {
public:
    DropTarget();

    QStringList offeredFormats;
    QStringList bookmarks;
    bool canInit = false;
    bool wasDropped = false;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

// The real clipboard of a display of its own, and other programs on it. Skips where there is none.
class ClipboardFixture : public ::testing::Test {
public:
    static inline bool hasDisplay = false;

protected:
    void SetUp() override;
    void TearDown() override;

    // Runs a program to its end while this one goes on answering; its output, none when it fails
    // or is not there.
    [[nodiscard]] static std::optional<QByteArray> run(const QString& program,
                                                       const QStringList& arguments);
    [[nodiscard]] static bool isInstalled(const QString& program);

    // Another program takes the clipboard and offers one type there, until the test ends.
    void offerByXclip(const QString& type, const QByteArray& bytes);
    // What another program reads there.
    [[nodiscard]] static QByteArray readByXclip(const QString& type);

    test::ScratchFolder m_folder;

private:
    QProcess m_offering;
};
