// SPDX-License-Identifier: MIT
#include "app/clipboard/ClipboardFixture.h"

#include "formats/QLWebBookmarkFile.h"

#include <QtTest/QTest>

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QStringList bookmarksOn(const platform::Pasteboard& pasteboard)
{
    QStringList texts;
    for (const auto& bookmark : QLWebBookmarkFile::bookmarksWithPasteboard(pasteboard))
        texts += u"%1 <%2>"_s.arg(bookmark->name(), bookmark->URL().absoluteString());
    return texts;
}

DropTarget::DropTarget()
{
    setAcceptDrops(true);
}

void DropTarget::dragEnterEvent(QDragEnterEvent* event)
{
    event->acceptProposedAction();
}

void DropTarget::dropEvent(QDropEvent* event)
{
    const platform::Pasteboard pasteboard(*event->mimeData());
    offeredFormats = pasteboard.formats();
    canInit = QLWebBookmarkFile::canInitWithPasteboard(pasteboard);
    bookmarks = bookmarksOn(pasteboard);
    wasDropped = true;
    event->acceptProposedAction();
}

void ClipboardFixture::SetUp()
{
    if (!hasDisplay)
        GTEST_SKIP() << "Xvfb is not installed";
}

void ClipboardFixture::TearDown()
{
    m_offering.kill();
    m_offering.waitForFinished();
    if (!hasDisplay)
        return;
    QGuiApplication::clipboard()->clear();
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return QGuiApplication::clipboard()->mimeData()->formats().isEmpty(); }, 20000));
}

std::optional<QByteArray> ClipboardFixture::run(const QString& program,
                                                const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool hasEnded =
        QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 20000);
    if (!hasEnded || process.error() == QProcess::FailedToStart || process.exitCode() != 0)
        return std::nullopt;
    return process.readAllStandardOutput();
}

bool ClipboardFixture::isInstalled(const QString& program)
{
    return !QStandardPaths::findExecutable(program).isEmpty();
}

void ClipboardFixture::offerByXclip(const QString& type, const QByteArray& bytes)
{
    const QString file = m_folder.write(u"offered"_s, bytes);
    // It stays to answer for what it offers.
    m_offering.start(u"xclip"_s,
                     {u"-quiet"_s, u"-selection"_s, u"clipboard"_s, u"-t"_s, type, u"-i"_s, file});
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return !QGuiApplication::clipboard()->mimeData()->formats().isEmpty(); }, 20000));
}

QByteArray ClipboardFixture::readByXclip(const QString& type)
{
    return run(u"xclip"_s, {u"-selection"_s, u"clipboard"_s, u"-o"_s, u"-t"_s, type})
        .value_or("nothing");
}
