// SPDX-License-Identifier: MIT
#include "foundation/StringBMExtensions.h"

#include "platform/core/CharacterSet.h"
#include "platform/core/PathUtilities.h"
#include "support/RandomText.h"
#include "support/ScratchFolder.h"

#include <stdexcept>

namespace {

using namespace Qt::StringLiterals;

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

class FileNamePropertyTest : public ::testing::TestWithParam<unsigned> {
protected:
    // Over and under the limit alike.
    QString nextName() { return m_random.next(m_random.number(0, 3) == 0 ? 600 : 40); }

    test::RandomText m_random{GetParam()};
    test::ScratchFolder m_folder;
};

TEST_P(FileNamePropertyTest, AnyTextMakesASafeNameOrRaisesForItsExtension)
{
    for (int count = 0; count < 3000; ++count) {
        const QString title = nextName();
        QString name;
        try {
            name = stringSanitizedForFileName(title);
        } catch (const std::out_of_range&) {
            EXPECT_GT(platform::pathExtension(title).size(), 250);
            continue;
        }
        EXPECT_LE(name.size(), 255);
        EXPECT_LE(name.size(), title.size());
        EXPECT_FALSE(name.contains(u'/') || name.contains(u':') || name.contains(u'~'));
        EXPECT_FALSE(std::any_of(name.begin(), name.end(), [](QChar unit) {
            return platform::isNewlineCharacter(unit.unicode());
        }));
        // A name over the limit whose extension leaves no room for more begins with the dot.
        EXPECT_FALSE(name.startsWith(u'.') && name.size() < 255);
        // Blanks that a cut has left at the end are all that a second time finds to do.
        if (!name.startsWith(u'.')) {
            EXPECT_EQ(stringSanitizedForFileName(name),
                      platform::trimmedOfWhitespaceAndNewlines(name).toString());
        }
    }
}

TEST_P(FileNamePropertyTest, ANameThatIsTakenGetsAnotherThatIsSafe)
{
    const QUrl url = QUrl::fromLocalFile(m_folder.path());
    for (int count = 0; count < 150; ++count) {
        const QString name =
            stringSanitizedForFileName(m_random.next(30)).remove(QChar(0)).trimmed();
        if (name.isEmpty() || !name.isValidUtf16() || name.toUtf8().size() > 200)
            continue;
        EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(name, url), name);
        m_folder.write(name, "x");
        const QString other = makeFilenameUniqueInDirectoryAtURL(name, url);
        EXPECT_NE(other, name);
        EXPECT_TRUE(other.endsWith(u'1') || other.contains(u" 1."_s)) << qPrintable(other);
        EXPECT_EQ(platform::pathExtension(other), platform::pathExtension(name));
        ASSERT_TRUE(QFile::remove(m_folder.filePath(name)));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FileNamePropertyTest, ::testing::Values(21U, 20130418U, 0xBEEFU));

} // namespace
