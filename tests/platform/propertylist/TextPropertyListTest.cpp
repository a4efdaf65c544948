// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"

namespace {

std::optional<QVariant> read(const QByteArray& text) { return platform::propertyListFromData(text); }

TEST(TextPropertyListTest, ReadsDictionariesListsDataAndStrings)
{
    const QVariantMap expected{
        {QStringLiteral("name"), QStringLiteral("a b")},
        {QStringLiteral("path"), QStringLiteral("/usr/lib-1.0:x_$")},
        {QStringLiteral("a key"), QVariantList{QStringLiteral("1"), QStringLiteral("two"), QVariantList{}}},
        {QStringLiteral("data"), QByteArray::fromHex("0fbd77")},
        {QStringLiteral("none"), QVariantMap{}},
    };
    EXPECT_EQ(read("// a comment\n{ name = \"a b\"; path = /usr/lib-1.0:x_$; \"a key\" = (1, two, (),);"
                   " data = <0fbd 77>; /* another\n one */ none = {}; }\n// end"),
              QVariant(expected));
}

TEST(TextPropertyListTest, ReadsEscapes)
{
    EXPECT_EQ(read("\"\\n\\t\\\"\\\\\\U00e4\\101\\0x\""),
              QVariant(QStringLiteral("\n\t\"\\\u00e4A") + QChar(u'\0') + QStringLiteral("x")));
    EXPECT_EQ(read("'single \"quoted\"'"), QVariant(QStringLiteral("single \"quoted\"")));
    EXPECT_EQ(read("\"\xC3\xA4\""), QVariant(QStringLiteral("\u00e4")));
    EXPECT_FALSE(read("\"\\341\""));
}

TEST(TextPropertyListTest, ReadsStringsFiles)
{
    const QVariantMap expected{{QStringLiteral("OK"), QStringLiteral("Gut")},
                               {QStringLiteral("Same"), QStringLiteral("Same")}};
    EXPECT_EQ(read("/* Button */\n\"OK\" = \"Gut\";\n\nSame;\n"), QVariant(expected));
    const QString text = QStringLiteral("\"OK\" = \"Gut\"; Same;");
    const QByteArray wide(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(read("\xFF\xFE" + wide), QVariant(expected));
}

TEST(TextPropertyListTest, RefusesDamage)
{
    for (const char* text :
         {"{",     "{a",           "{a =",  "{a = b", "{a = b}", "{a = b;", "{= b;}", "(",   "(a",
          "(a b)", "(,)",          "<0",    "<0f0>",  "<xx>",    "\"a",     "\"\\",   "a b", "{a = b;} c",
          "/* a",  "{a = b; /* }", "a = ;", "}",      ")",       "=",       "a = b"})
        EXPECT_FALSE(read(text)) << text;
}

TEST(TextPropertyListTest, RefusesADepthBomb)
{
    const int depth = 1'000'000;
    EXPECT_FALSE(read(QByteArray(depth, '(')));
    EXPECT_FALSE(read(QByteArray(depth, '(') + QByteArray(depth, ')')));
    EXPECT_FALSE(read(QByteArray("{a=").repeated(depth)));
}

TEST(TextPropertyListTest, NestsToTheLimit)
{
    EXPECT_TRUE(read(QByteArray(512, '(') + QByteArray(512, ')')));
    EXPECT_FALSE(read(QByteArray(513, '(') + QByteArray(513, ')')));
}

TEST(TextPropertyListTest, ReadsALongTextAndRefusesCommentsThatNeverEnd)
{
    EXPECT_TRUE(read("{" + QByteArray("a = \"b\"; // c\n").repeated(100'000) + "}"));
    EXPECT_FALSE(read(QByteArray("/*").repeated(500'000)));
}

} // namespace
