// SPDX-License-Identifier: MIT
#include "foundation/StringPathsBMExtensions.h"

#include "platform/files/ResourceValues.h"
#include "support/RandomText.h"
#include "support/ScratchFolder.h"

namespace {

using namespace Qt::StringLiterals;

TEST(FileSystemRepresentationStringTest, DecomposesLetters)
{
    EXPECT_EQ(fileSystemRepresentationString(u"Caf\u00e9"_s), u"Cafe\u0301"_s);
    EXPECT_EQ(fileSystemRepresentationString(u"\ud55c"_s), u"\u1112\u1161\u11ab"_s);
    EXPECT_EQ(fileSystemRepresentationString(u"a\u0301\u0328"_s), u"a\u0328\u0301"_s);
    EXPECT_EQ(fileSystemRepresentationString(u"plain"_s), u"plain"_s);
    EXPECT_EQ(fileSystemRepresentationString(u""_s), u""_s);
}

TEST(FileSystemRepresentationStringTest, EndsAtTheFirstNul)
{
    EXPECT_EQ(fileSystemRepresentationString(u"a\0b"_s), u"a"_s);
}

TEST(FileSystemRepresentationStringTest, UnpairedSurrogatesStay)
{
    const QString odd = QString(QChar(0xDC00)) + u'\u00e9' + QChar(0xD800);
    EXPECT_EQ(fileSystemRepresentationString(odd), QString(QChar(0xDC00)) + u"e\u0301"_s + QChar(0xD800));
}

TEST(FileSystemRepresentationStringTest, IsTheSameTheSecondTime)
{
    test::RandomText random(4);
    for (int count = 0; count < 3000; ++count) {
        const QString once = fileSystemRepresentationString(random.next(60));
        EXPECT_EQ(fileSystemRepresentationString(once), once);
    }
}

TEST(FileDisplayNameTest, LeavesOutAnExtensionThatTheItemHides)
{
    const test::ScratchFolder folder;
    const QString path = folder.write(u"Shopping.list.qlnote"_s, "x");
    EXPECT_EQ(fileDisplayName(path), u"Shopping.list.qlnote"_s);
    platform::ResourceValues values;
    values.hasHiddenExtension = true;
    if (!platform::setResourceValues(path, values))
        GTEST_SKIP() << "the file system keeps no attributes";
    EXPECT_EQ(fileDisplayName(path), u"Shopping.list"_s);
}

TEST(FileDisplayNameTest, AnyPathHasOne)
{
    test::RandomText random(24);
    for (int count = 0; count < 2000; ++count) {
        const QString path = u"/nowhere/"_s + random.next(40);
        const QString name = fileDisplayName(path);
        EXPECT_FALSE(name.isEmpty() || name.contains(u'/')) << qPrintable(path);
        EXPECT_TRUE(path.contains(name));
    }
}

TEST(FileDisplayNameTest, AnItemThatIsNotThereShowsItsLastComponent)
{
    EXPECT_EQ(fileDisplayName(u"/nowhere/at/all.txt"_s), u"all.txt"_s);
    EXPECT_EQ(fileDisplayName(u"/nowhere/folder/"_s), u"folder"_s);
    EXPECT_EQ(fileDisplayName(u"/"_s), u"/"_s);
    EXPECT_EQ(fileDisplayName(u""_s), u""_s);
}

} // namespace
