// SPDX-License-Identifier: MIT
#include "exports/ExportFiles.h"

#include "support/ScratchFolder.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExportFilesTest : public testing::Test {
protected:
    void write(const char* name) { m_folder.write(QString::fromUtf8(name), "x"); }
    void link(const QString& target, const char* name)
    {
        QDir().mkpath(QFileInfo(m_folder.filePath(name)).path());
        ASSERT_TRUE(QFile::link(target, m_folder.filePath(name)));
    }
    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const ExportFile& file : exportFilesIn(m_folder.path()))
            names += file.name;
        return names;
    }

    test::ScratchFolder m_folder;
};

TEST_F(ExportFilesTest, FilesAreListedByNameAndThoseInFoldersAfterTheirStack)
{
    write("b.enex");
    write("A.ENEX");
    write("Work/Ideas.enex");
    write("Home/Ideas.enex");
    write("Work/2024/c.enex");
    write("other.txt");
    write("enex");
    EXPECT_EQ(names(), QStringList({"A", "b", "Home/Ideas", "Work/2024/c", "Work/Ideas"}));
    EXPECT_EQ(exportFilesIn(m_folder.path())[4].path, m_folder.filePath("Work/Ideas.enex"));
}

TEST_F(ExportFilesTest, FilesThatAppearAreListedTheNextTime)
{
    EXPECT_THAT(names(), IsEmpty());
    write("a.enex");
    EXPECT_EQ(names(), QStringList("a"));
}

TEST_F(ExportFilesTest, AFolderThatIsNotThereIsAProblem)
{
    const std::vector<ExportFile> files = exportFilesIn(m_folder.filePath("none"));
    ASSERT_EQ(files.size(), 1u);
    ASSERT_TRUE(files[0].problem);
    EXPECT_EQ(files[0].name, "none");
    EXPECT_EQ(files[0].problem->code(), 260);
}

TEST_F(ExportFilesTest, HiddenFilesAreNotListed)
{
    write(".enex");
    write("._a.enex");
    write(".hidden/a.enex");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(ExportFilesTest, NamesThatWouldBecomeOneFolderAreToldApart)
{
    write("a/b.enex");
    write("a-b.enex");
    write("a:b.enex");
    write("x.enex");
    write("x.ENEX");
    write("X.enex");
    const QStringList listed = names();
    EXPECT_EQ(listed.size(), 6);
    EXPECT_EQ(QSet<QString>(listed.begin(), listed.end()).size(), 6);
    EXPECT_TRUE(listed.contains("a-b"));
    EXPECT_TRUE(listed.contains("a-b 1"));
    EXPECT_TRUE(listed.contains("a-b 2"));
    EXPECT_TRUE(listed.contains("x 1"));
}

TEST_F(ExportFilesTest, NamesOfWhichNoFolderCanBeMadeAreReplaced)
{
    write(" .enex");
    write("\n.enex");
    write("one\nline.enex");
    write("one\nmore.enex");
    write("Evernote.qllibxml.enex");
    EXPECT_THAT(names(), ::testing::UnorderedElementsAre(QString("Untitled"), QString("Untitled 1"),
                                                         QString("one\nline"), QString("one 1"),
                                                         QString("Evernote.qllibxml 1")));
}

TEST_F(ExportFilesTest, NamesAreShortEnoughForAFolderAndKeepTheNotebooksOwn)
{
    const QString longStack = QString(80, QChar(0x65E5));
    const QString longName = QString(70, QChar(0x672C));
    m_folder.write(longStack + "/" + longName + ".enex", "x");
    m_folder.write(longStack + "/" + longStack + ".enex", "x");
    for (const QString& name : names()) {
        EXPECT_LE(name.toUtf8().size(), 240) << qPrintable(name);
        EXPECT_TRUE(name.endsWith(longName) || name.endsWith(longStack)) << qPrintable(name);
    }
}

TEST_F(ExportFilesTest, LinksToFilesAreFollowed)
{
    const test::ScratchFolder elsewhere;
    link(elsewhere.write("real.enex", "x"), "link.enex");
    EXPECT_EQ(names(), QStringList("link"));
}

TEST_F(ExportFilesTest, ALinkToAFileThatIsListedAnywayIsNotListed)
{
    write("Stack/a.enex");
    link(m_folder.filePath("Stack/a.enex"), "Favourite.enex");
    link("Favourite.enex", "Again.enex");
    EXPECT_EQ(names(), QStringList("Stack/a"));
}

TEST_F(ExportFilesTest, ALinkThatLeadsNowhereIsListed)
{
    link("nowhere", "a.enex");
    link("b.enex", "b.enex");
    EXPECT_EQ(names(), QStringList({"a", "b"}));
}

TEST_F(ExportFilesTest, LinkedFoldersAreLookedIntoOnce)
{
    const test::ScratchFolder elsewhere;
    elsewhere.write("x/a.enex", "x");
    link(elsewhere.filePath("x"), "One");
    link(elsewhere.filePath("x"), "Two");
    write("Real/b.enex");
    link(m_folder.filePath("Real"), "Alias");
    EXPECT_EQ(names(), QStringList({"One/a", "Real/b"}));
}

TEST_F(ExportFilesTest, LoopsOfLinksEnd)
{
    write("Stack/a.enex");
    link(m_folder.path(), "Stack/up");
    link("/", "Stack/root");
    link("..", "Stack/parent");
    link("Other", "Stack/Other");
    const test::ScratchFolder elsewhere;
    link(elsewhere.path(), "Out");
    QFile::link(elsewhere.path(), elsewhere.filePath("in"));
    QFile::link(m_folder.path(), elsewhere.filePath("back"));
    EXPECT_EQ(names(), QStringList("Stack/a"));
}

TEST_F(ExportFilesTest, WhatIsNoFileIsListedWhenItIsNamedLikeOne)
{
    ASSERT_EQ(mkfifo(qPrintable(m_folder.filePath("pipe.enex")), 0600), 0);
    EXPECT_EQ(names(), QStringList("pipe"));
    // A folder is a stack, whatever its name.
    write("a.enex/b.enex");
    EXPECT_EQ(names(), QStringList({"a.enex/b", "pipe"}));
}

TEST_F(ExportFilesTest, WhatAnImportHasLaidOutIsNoStack)
{
    write("Own.enex");
    write("Evernote.qllibxml");
    write("Notebook/XML/Notebook.enex");
    EXPECT_EQ(names(), QStringList("Own"));
}

TEST_F(ExportFilesTest, AStackThatCannotBeLookedIntoIsListedWithTheReason)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is closed to the superuser";
    write("Stack/a.enex");
    QFile::setPermissions(m_folder.filePath("Stack"), {});
    const std::vector<ExportFile> files = exportFilesIn(m_folder.path());
    QFile::setPermissions(m_folder.filePath("Stack"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].name, "Stack");
    ASSERT_TRUE(files[0].problem);
    EXPECT_EQ(files[0].problem->code(), 257);
}

TEST_F(ExportFilesTest, DeepAndManyFoldersAreNoTrouble)
{
    QString deep;
    for (int level = 0; level < 300; ++level)
        deep += "d/";
    m_folder.write(deep + "a.enex", "x");
    for (int number = 0; number < 3000; ++number)
        m_folder.write(QString::number(number) + ".enex", "x");
    EXPECT_EQ(names().size(), 3001);
}

} // namespace
