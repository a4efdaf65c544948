// SPDX-License-Identifier: MIT
#include "foundation/FileManagerKindsBMExtensions.h"

#include "support/RandomText.h"

#include <QLocale>

namespace {

using namespace Qt::StringLiterals;

TEST(KindStringForExtensionTest, DescribesAKnownExtension)
{
    EXPECT_EQ(kindStringForExtension(u"pdf"_s), u"PDF document"_s);
    EXPECT_EQ(kindStringForExtension(u"PDF"_s), u"PDF document"_s);
    EXPECT_EQ(kindStringForExtension(u"png"_s), u"PNG image"_s);
    EXPECT_EQ(kindStringForExtension(u"webloc"_s), u"Web location"_s);
    // Types that the system's database alone knows.
    EXPECT_EQ(kindStringForExtension(u"blend"_s), u"Blender scene"_s);
    EXPECT_EQ(kindStringForExtension(u"tar.gz"_s), u"Tar archive (gzip-compressed)"_s);
}

TEST(KindStringForExtensionTest, InTheUsersLanguage)
{
    QLocale::setDefault(QLocale(QLocale::German));
    const QString kind = kindStringForExtension(u"pdf"_s);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(kind, u"PDF-Dokument"_s);
}

TEST(KindStringForExtensionTest, AnUnknownExtensionIsItsOwnDescription)
{
    for (const QString& extension : {u"qqq-unknown"_s, u""_s, u"a b"_s, u"Unknown Thing"_s, u"."_s,
                                     u"unknown.pdf"_s, u"x/y.pdf"_s, u"pdf~"_s, u"pdf "_s})
        EXPECT_EQ(kindStringForExtension(extension), extension);
}

TEST(KindStringForExtensionTest, AnApostropheTellsATypeCode)
{
    EXPECT_EQ(kindStringForExtension(u"'PDF '"_s), u"PDF document"_s);
    EXPECT_EQ(kindStringForExtension(u"'pdf'"_s), u"'pdf'"_s);
    EXPECT_EQ(kindStringForExtension(u"''"_s), u"''"_s);
    EXPECT_EQ(kindStringForExtension(u"it's"_s), u"it's"_s);
}

TEST(KindStringForExtensionTest, AnyTextHasAKind)
{
    test::RandomText random(10);
    for (int count = 0; count < 300; ++count) {
        const QString text = random.next(8);
        EXPECT_EQ(kindStringForExtension(text).isEmpty(), text.isEmpty());
    }
}

} // namespace
