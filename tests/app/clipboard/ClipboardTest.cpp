// SPDX-License-Identifier: MIT
#include "app/GeneralPasteboard.h"
#include "app/clipboard/ClipboardFixture.h"
#include "formats/QLWebBookmarkFile.h"
#include "platform/pasteboard/PasteboardTypes.h"
#include "platform/propertylist/PropertyList.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QtTest/QTest>

namespace {

using namespace Qt::StringLiterals;
using platform::Url;

QByteArray utf16(const QString& text)
{
    return QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

class ClipboardTest : public ClipboardFixture {
protected:
    void SetUp() override
    {
        ClipboardFixture::SetUp();
        if (hasDisplay && !isInstalled(u"xclip"_s))
            GTEST_SKIP() << "xclip is not installed";
    }
};

TEST_F(ClipboardTest, AnEmptyClipboardOffersNothing)
{
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(QLWebBookmarkFile::canInitWithPasteboard(generalPasteboard()));
    EXPECT_EQ(bookmarksOn(generalPasteboard()), QStringList());
}

TEST_F(ClipboardTest, OtherProgramsReadTheBookmarksThatAreWritten)
{
    platform::Pasteboard pasteboard;
    QLWebBookmarkFile::writeBookmarkFiles(
        {QLWebBookmarkFile::bookmarkWithName(u"Caf\u00e9"_s,
                                             *Url::fromString(u"notes://showNote?a=B"_s)),
         QLWebBookmarkFile::bookmarkWithName(u"B"_s, *Url::fromString(u"http://b.example/"_s))},
        pasteboard);
    setGeneralPasteboard(pasteboard);

    const QStringList targets = QString::fromUtf8(readByXclip(u"TARGETS"_s)).split(u'\n');
    for (const QString& type :
         {u"WebURLsWithTitlesPboardType"_s, u"OWDictionaryBookmarkPasteboardType"_s,
          u"text/uri-list"_s, u"UTF8_STRING"_s})
        EXPECT_TRUE(targets.contains(type)) << qPrintable(type);
    EXPECT_EQ(readByXclip(u"text/uri-list"_s), "notes://showNote?a=B\r\n");
    EXPECT_EQ(readByXclip(u"UTF8_STRING"_s), "notes://showNote?a=B");
    const auto lists =
        platform::propertyListFromData(readByXclip(u"WebURLsWithTitlesPboardType"_s));
    EXPECT_EQ(lists,
              QVariant(QVariantList{QVariantList{u"notes://showNote?a=B"_s, u"http://b.example/"_s},
                                    QVariantList{u"Caf\u00e9"_s, u"B"_s}}));
}

TEST_F(ClipboardTest, ALinkWithItsTitleIsRead)
{
    offerByXclip(u"_NETSCAPE_URL"_s, u"http://a.example/b|c\nCaf\u00e9 \U0001F600"_s.toUtf8());
    EXPECT_TRUE(QLWebBookmarkFile::canInitWithPasteboard(generalPasteboard()));
    EXPECT_EQ(bookmarksOn(generalPasteboard()),
              QStringList{u"Caf\u00e9 \U0001F600 <http://a.example/b%7Cc>"_s});
}

TEST_F(ClipboardTest, ALinkInTheNewerFormatLosesItsTitleOnThisDisplay)
{
    // Qt gives it as a list of addresses on X11, and those have no titles. Browsers offer the older
    // format beside it.
    offerByXclip(u"text/x-moz-url"_s, utf16(u"http://a.example/b|c\nTitle"_s));
    EXPECT_TRUE(QLWebBookmarkFile::canInitWithPasteboard(generalPasteboard()));
    EXPECT_EQ(bookmarksOn(generalPasteboard()),
              QStringList{u"a.example <http://a.example/b%7Cc>"_s});
}

TEST_F(ClipboardTest, AListOfAddressesIsRead)
{
    offerByXclip(u"text/uri-list"_s, "# comment\r\nnotes://showNote?a=B\r\nhttp://b.example/\r\n");
    EXPECT_EQ(bookmarksOn(generalPasteboard()), QStringList{u"showNote <notes://showNote?a=B>"_s});
}

TEST_F(ClipboardTest, ATextThatIsAnAddressIsRead)
{
    offerByXclip(u"UTF8_STRING"_s, "me@a.example");
    EXPECT_TRUE(QLWebBookmarkFile::canInitWithPasteboard(generalPasteboard()));
    EXPECT_EQ(bookmarksOn(generalPasteboard()), QStringList{u" <mailto:me@a.example>"_s});
}

TEST_F(ClipboardTest, ATextThatIsNoAddressIsNot)
{
    offerByXclip(u"UTF8_STRING"_s, "Caf\xC3\xA9 at ten");
    EXPECT_FALSE(QLWebBookmarkFile::canInitWithPasteboard(generalPasteboard()));
    EXPECT_EQ(generalPasteboard().stringForType(platform::pasteboardTypeString),
              u"Caf\u00e9 at ten"_s);
}

TEST_F(ClipboardTest, TitledListsOfAnotherProgramAreRead)
{
    const QVariantList lists{QVariantList{u"http://a.example/"_s, u"http://b.example/x y"_s},
                             QVariantList{u"A"_s, u"B"_s}};
    offerByXclip(u"WebURLsWithTitlesPboardType"_s,
                 *platform::propertyListData(lists, platform::PropertyListFormat::Binary));
    EXPECT_EQ(bookmarksOn(generalPasteboard()),
              QStringList({u"A <http://a.example/>"_s, u"B <http://b.example/x%20y>"_s}));
}

TEST_F(ClipboardTest, AMailMessageIsRefused)
{
    offerByXclip(u"com.apple.mail.PasteboardTypeMessageTransfer"_s, "x");
    EXPECT_FALSE(QLWebBookmarkFile::canInitWithPasteboard(generalPasteboard()));
}

} // namespace
