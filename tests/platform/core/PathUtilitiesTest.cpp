// SPDX-License-Identifier: MIT
#include "platform/core/CharacterSet.h"
#include "platform/core/PathUtilities.h"

namespace {

struct PathCase {
    const char* path;
    const char* component;
    const char* extension;
    const char* withoutExtension;
};

class PathUtilitiesTest : public ::testing::TestWithParam<PathCase> {};

TEST_P(PathUtilitiesTest, TakesAPathApart)
{
    const PathCase& row = GetParam();
    const QString path = QString::fromUtf8(row.path);
    EXPECT_EQ(platform::lastPathComponent(path).toStdString(), row.component);
    EXPECT_EQ(platform::pathExtension(path).toStdString(), row.extension);
    EXPECT_EQ(platform::stringByDeletingPathExtension(path).toStdString(), row.withoutExtension);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, PathUtilitiesTest,
    ::testing::Values(PathCase{"/a/My Notes.enex", "My Notes.enex", "enex", "/a/My Notes"},
                      PathCase{"plain", "plain", "", "plain"}, PathCase{".hidden", ".hidden", "", ".hidden"},
                      PathCase{".name.txt", ".name.txt", "txt", ".name"}, PathCase{"trailing.", "trailing.", "", "trailing."},
                      PathCase{"...x", "...x", "", "...x"}, PathCase{"/a/b.c/", "b.c", "c", "/a/b"},
                      PathCase{"a.b/c", "c", "", "a.b/c"}, PathCase{"", "", "", ""}, PathCase{"/", "/", "", "/"},
                      PathCase{"Part one. The rest", "Part one. The rest", "", "Part one. The rest"},
                      PathCase{"x.tar.gz", "x.tar.gz", "gz", "x.tar"}));

TEST(CharacterSetTest, TrimsEveryKindOfBlankAndLineEnd)
{
    EXPECT_EQ(platform::trimmedOfWhitespaceAndNewlines(u"\u2028\u00A0 a\tb \u200B\u3000\n"), u"a\tb");
    EXPECT_TRUE(platform::trimmedOfWhitespaceAndNewlines(u" \n\u0085").isEmpty());
    EXPECT_EQ(platform::trimmedOfWhitespaceAndNewlines(u"\uFEFFa"), u"\uFEFFa");
}

} // namespace
