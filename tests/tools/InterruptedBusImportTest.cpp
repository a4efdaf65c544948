// SPDX-License-Identifier: MIT
//
// The library service is killed at every change that it makes to the file system during an import.
#include "tools/BusCommandFixture.h"
#include "tools/LibraryComparison.h"

#include <chrono>
#include <thread>

namespace {

using test::CommandResult;
using test::text;
namespace quillery = platform::quillery;

class InterruptedBusImportTest : public test::BusCommandTest {
protected:
    // The first line that the tracer wrote; empty where programs cannot be traced. The run may learn of the
    // service's death a moment before the tracer has written it down.
    [[nodiscard]] QString ending() const
    {
        const auto isWritten
            = [this] { return exists("ending") && m_folder.read(text("ending")).contains('\n'); };
        for (int tries = 0; tries < 500 && !isWritten(); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return isWritten() ? QString::fromUtf8(m_folder.read(text("ending"))).section(u'\n', 0, 0)
                           : QString();
    }
    [[nodiscard]] QStringList libraryFolders() const
    {
        return QDir(path("lib")).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    }
};

TEST_F(InterruptedBusImportTest, KilledAtAnyStepTheRunFailsNothingIsLostAndTheNextRunWorks)
{
    // A note, a page and a document: packages and single files.
    const QByteArray tagged = "<created>20130412T093015Z</created><tag>one</tag>";
    const QByteArray notes = note("First", "<en-note><en-todo/>text</en-note>", tagged) +
                             note("Second", "<en-note>more</en-note>", tagged) + note("Third");
    const QString enex = file("Notes.enex", notes);
    ASSERT_EQ(run({text("--library"), text("expected"), enex}).status, 0);
    int kills = 0;
    int finished = 0;
    for (int number = 1;; ++number) {
        QDir(path("lib")).removeRecursively();
        QFile::remove(path("ending"));
        startBus({{quillery::identifier,
                   QStringList{text(KILL_AT_CHANGE), QString::number(number), path("ending")} +
                       libraryCommand()}});
        const CommandResult interrupted = run({enex});
        if (interrupted.status == 0)
            break;
        ASSERT_EQ(interrupted.status, 1);
        if (ending().isEmpty() && kills == 0)
            GTEST_SKIP() << "programs cannot be traced here";
        ASSERT_EQ(ending(), text("killed")) << number;
        EXPECT_TRUE(interrupted.errors.contains(text("Quillery")))
            << qPrintable(interrupted.errors);
        EXPECT_EQ(interrupted.lastLine(),
                  text("3 notes: 0 became items, none were skipped, 3 were not imported."));
        ++kills;

        startBus({{quillery::identifier, libraryCommand()}});
        const CommandResult next = run({enex});
        EXPECT_EQ(next.status, 0) << number << qPrintable(next.errors);
        EXPECT_EQ(next.lastLine(), text("3 notes: 3 became items, none were skipped."));
        // What had begun was finished, under the first name; then came the new import.
        const QStringList folders = libraryFolders();
        ASSERT_GE(folders.size(), 1) << number;
        ASSERT_LE(folders.size(), 2) << number;
        finished += folders.size() == 2 ? 1 : 0;
        for (const QString& folder : folders) {
            SCOPED_TRACE(text("%1, %2").arg(number).arg(folder).toStdString());
            test::expectSameFolder(path("expected/Notes"), path("lib/") + folder);
        }
        const QStringList hidden =
            QDir(path("lib")).entryList({text(".importing-*")}, QDir::Dirs | QDir::Hidden);
        EXPECT_EQ(hidden, QStringList()) << number;
    }
    EXPECT_GT(kills, 20);
    EXPECT_GT(finished, 10);
    RecordProperty("kills", kills);
}

} // namespace
