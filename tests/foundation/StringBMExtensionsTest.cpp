// SPDX-License-Identifier: MIT
#include "foundation/StringBMExtensions.h"

#include "support/ScratchFolder.h"

#include <stdexcept>

namespace {

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

TEST(StringSanitizedForFileNameTest, TrimsThenHidesNoNameThenReplacesSeparators)
{
    EXPECT_EQ(stringSanitizedForFileName(text("  ..a/b:c~d  ")), text("-.a-b-c-d"));
}

TEST(StringSanitizedForFileNameTest, CutsAtTheFirstLineBreakAndKeepsTheBlankBeforeIt)
{
    EXPECT_EQ(stringSanitizedForFileName(text("x \ny")), text("x "));
    EXPECT_EQ(stringSanitizedForFileName(text("x\u2028y\u2029z")), text("x"));
    EXPECT_EQ(stringSanitizedForFileName(text("x\ry")), text("x"));
    EXPECT_EQ(stringSanitizedForFileName(text("x\u0085y")), text("x"));
}

TEST(StringSanitizedForFileNameTest, OnlyTheFirstOfSeveralLeadingDotsChanges)
{
    EXPECT_EQ(stringSanitizedForFileName(text("...")), text("-.."));
    EXPECT_EQ(stringSanitizedForFileName(text(".")), text("-"));
}

TEST(StringSanitizedForFileNameTest, ReplacesEverySeparatorWhereverItStands)
{
    EXPECT_EQ(stringSanitizedForFileName(text("/etc/passwd")), text("-etc-passwd"));
    EXPECT_EQ(stringSanitizedForFileName(text("~a::b//")), text("-a--b--"));
}

TEST(StringSanitizedForFileNameTest, BlankTextGivesAnEmptyName)
{
    EXPECT_EQ(stringSanitizedForFileName(QString()), QString());
    EXPECT_EQ(stringSanitizedForFileName(text(" \t\n\u3000")), QString());
}

TEST(StringSanitizedForFileNameTest, ALongNameWithAnExtensionBecomesExactly255Long)
{
    const QString name = stringSanitizedForFileName(QString(300, u'n') + text(".html"));
    EXPECT_EQ(name, QString(250, u'n') + text(".html"));
    EXPECT_EQ(name.size(), 255);
}

TEST(StringSanitizedForFileNameTest, ALongNameWithoutAnExtensionBecomesExactly254Long)
{
    EXPECT_EQ(stringSanitizedForFileName(QString(300, u'n')), QString(254, u'n'));
    EXPECT_EQ(stringSanitizedForFileName(QString(256, u'n')).size(), 254);
    EXPECT_EQ(stringSanitizedForFileName(QString(255, u'n')).size(), 255);
}

TEST(StringSanitizedForFileNameTest, CountsUtf16CodeUnits)
{
    EXPECT_EQ(stringSanitizedForFileName(QString(255, QChar(0x65E5))).size(), 255);
    const QString emoji = text("\U0001F600").repeated(128); // 256 units
    EXPECT_EQ(stringSanitizedForFileName(emoji).size(), 254);
}

TEST(StringSanitizedForFileNameTest, AnExtensionLongerThan254RaisesARangeError)
{
    EXPECT_THROW(static_cast<void>(stringSanitizedForFileName(text("a.") + QString(255, u'e'))), std::out_of_range);
    EXPECT_EQ(stringSanitizedForFileName(text("ab.") + QString(254, u'e')), text(".") + QString(254, u'e'));
}

TEST(StringSanitizedForFileNameTest, ASentencesFullStopStartsNoExtension)
{
    const QString title = text("First sentence. ") + text("word ").repeated(100);
    EXPECT_EQ(stringSanitizedForFileName(title).size(), 254);
}

TEST(StringSanitizedForFileNameTest, KeepsWhatOtherSystemsMightRefuse)
{
    EXPECT_EQ(stringSanitizedForFileName(text("a\\b*?\"<>|")), text("a\\b*?\"<>|"));
    EXPECT_EQ(stringSanitizedForFileName(text("\u202Eabc")), text("\u202Eabc"));
}

class MakeFilenameUniqueTest : public ::testing::Test {
protected:
    [[nodiscard]] QString unique(const char* name) const
    {
        return makeFilenameUniqueInDirectoryAtURL(text(name), QUrl::fromLocalFile(m_folder.path()));
    }

    test::ScratchFolder m_folder;
};

TEST_F(MakeFilenameUniqueTest, ReturnsAFreeNameUnchangedEvenWithASlash)
{
    EXPECT_EQ(unique("Notes.html"), text("Notes.html"));
    EXPECT_EQ(unique("a/b.html"), text("a/b.html"));
    EXPECT_EQ(unique("  .x:y "), text("  .x:y "));
}

TEST_F(MakeFilenameUniqueTest, TakesTheFirstFreeNumber)
{
    static_cast<void>(m_folder.write(text("Notes.html"), ""));
    static_cast<void>(m_folder.write(text("Notes 1.html"), ""));
    EXPECT_EQ(unique("Notes.html"), text("Notes 2.html"));
}

TEST_F(MakeFilenameUniqueTest, FillsAGapInTheNumbers)
{
    for (const char* name : {"a", "a 1", "a 3"})
        static_cast<void>(m_folder.write(text(name), ""));
    EXPECT_EQ(unique("a"), text("a 2"));
}

TEST_F(MakeFilenameUniqueTest, CountsFoldersAndLinksThatLeadNowhere)
{
    QDir(m_folder.path()).mkdir(text("Folder.qlnote"));
    QFile::link(text("/nowhere/at/all"), m_folder.filePath("Link"));
    EXPECT_EQ(unique("Folder.qlnote"), text("Folder 1.qlnote"));
    EXPECT_EQ(unique("Link"), text("Link 1"));
}

TEST_F(MakeFilenameUniqueTest, SanitizesTheNameItMakes)
{
    static_cast<void>(m_folder.write(text(".a"), ""));
    EXPECT_EQ(unique(".a"), text("-a 1"));
}

TEST_F(MakeFilenameUniqueTest, AMissingFolderHasEveryNameFree)
{
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(text("x"), QUrl::fromLocalFile(m_folder.filePath("gone"))), text("x"));
}

} // namespace
