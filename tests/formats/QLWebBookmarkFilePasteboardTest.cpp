// SPDX-License-Identifier: MIT
#include "formats/QLWebBookmarkFile.h"

#include "platform/pasteboard/PasteboardTypes.h"
#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;
using platform::Pasteboard;

const QString titledUrls = u"WebURLsWithTitlesPboardType"_s;
const QString labelled = u"OWDictionaryBookmarkPasteboardType"_s;

Pasteboard withText(const QString& text)
{
    Pasteboard pasteboard;
    pasteboard.setString(text, platform::pasteboardTypeString);
    return pasteboard;
}

Pasteboard withUrl(const QString& url)
{
    Pasteboard pasteboard;
    pasteboard.writeUrl(platform::Url::fromString(url).value_or(platform::Url()));
    return pasteboard;
}

Pasteboard withList(const QVariant& list, const QString& type)
{
    Pasteboard pasteboard;
    EXPECT_TRUE(pasteboard.setPropertyList(list, type));
    return pasteboard;
}

bool canInit(const Pasteboard& pasteboard) { return QLWebBookmarkFile::canInitWithPasteboard(pasteboard); }

// "name <address>" of each bookmark.
QStringList bookmarks(const Pasteboard& pasteboard)
{
    QStringList texts;
    for (const auto& bookmark : QLWebBookmarkFile::bookmarksWithPasteboard(pasteboard))
        texts += u"%1 <%2>"_s.arg(bookmark->name(), bookmark->URL().absoluteString());
    return texts;
}

TEST(CanInitWithPasteboardTest, LinksCan)
{
    EXPECT_TRUE(canInit(withUrl(u"http://a.example/"_s)));
    EXPECT_TRUE(canInit(withList(QVariantList(), titledUrls)));
    EXPECT_TRUE(
        canInit(withList(QVariantList(), platform::uniformTypeForPasteboardType(titledUrls))));
    Pasteboard both = withUrl(u"http://a.example/"_s);
    ASSERT_TRUE(both.setPropertyList(QVariantList(), labelled));
    EXPECT_TRUE(canInit(both));
    QMimeData browser;
    browser.setData(u"text/x-moz-url"_s, "http://a.example/\nTitle");
    EXPECT_TRUE(canInit(Pasteboard(browser)));
    EXPECT_FALSE(canInit(Pasteboard()));
}

TEST(CanInitWithPasteboardTest, MailMessagesCannot)
{
    for (const QString& type : {u"MV Super-secret message transfer pasteboard type"_s,
                                u"com.apple.mail.PasteboardTypeMessageTransfer"_s}) {
        Pasteboard pasteboard = withUrl(u"http://a.example/"_s);
        pasteboard.setData("x", type);
        EXPECT_FALSE(canInit(pasteboard));
    }
    EXPECT_FALSE(canInit(withUrl(u"message:%3Cid%3E"_s)));
    EXPECT_FALSE(canInit(withUrl(u"message://%3Cid@x%3E"_s)));
    EXPECT_FALSE(canInit(withUrl(u"MESSAGE:%3Cid%3E"_s)));
    EXPECT_FALSE(canInit(withUrl(u"x-postbox-message://a"_s)));
    EXPECT_TRUE(canInit(withUrl(u"messages:a"_s)));
    // Not even when the pasteboard offers titled addresses beside it.
    Pasteboard pasteboard = withUrl(u"message:%3Cid%3E"_s);
    ASSERT_TRUE(pasteboard.setPropertyList(QVariantList(), titledUrls));
    EXPECT_FALSE(canInit(pasteboard));
}

TEST(CanInitWithPasteboardTest, ItemsOfTheNotesApplicationCannot)
{
    Pasteboard pasteboard = withUrl(u"http://a.example/"_s);
    pasteboard.setData("x", u"com.brightmoor.Quillery.itemlink"_s);
    EXPECT_FALSE(canInit(pasteboard));
}

TEST(CanInitWithPasteboardTest, LabelledAddressesCanWhenTheFirstHasOne)
{
    EXPECT_TRUE(canInit(withList(QVariantList{QVariantMap{{u"address"_s, u"a"_s}}}, labelled)));
    EXPECT_FALSE(canInit(withList(QVariantList{QVariantMap{{u"address"_s, u""_s}}}, labelled)));
    EXPECT_FALSE(canInit(withList(QVariantList{QVariantMap{}, QVariantMap{{u"address"_s, u"a"_s}}}, labelled)));
    EXPECT_FALSE(canInit(withList(QVariantList(), labelled)));
    EXPECT_FALSE(canInit(withList(u"text"_s, labelled)));
    Pasteboard damaged = withText(u"http://a.example/"_s);
    damaged.setData("\xFF", labelled);
    EXPECT_FALSE(canInit(damaged));
}

TEST(CanInitWithPasteboardTest, TextsThatAreAddressesCan)
{
    EXPECT_TRUE(canInit(withText(u"http://a.example/"_s)));
    EXPECT_TRUE(canInit(withText(u"me@a.example"_s)));
    EXPECT_FALSE(canInit(withText(u"see http://a.example/"_s)));
    EXPECT_FALSE(canInit(withText(u"a.example"_s)));
    EXPECT_FALSE(canInit(withText(u"me@caf\u00e9"_s)));
    EXPECT_FALSE(canInit(withText(u"http://a.example/\n"_s)));
    EXPECT_TRUE(canInit(withText(u"notes://showNote"_s)));
    EXPECT_TRUE(canInit(withText(u"http://a.example/?b|c"_s)));
    EXPECT_FALSE(canInit(withText(u"a|b@c"_s)));
    EXPECT_FALSE(canInit(withText(QString())));
}

TEST(BookmarksWithPasteboardTest, TitledUrlsInBothTypes)
{
    const QVariantList lists{QVariantList{u"http://a.example/"_s, u"http://b.example/caf\u00e9 x"_s,
                                          u"http://c:port/"_s, u""_s, u"http://[e"_s},
                             QVariantList{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s}};
    // The third is no URL either way, nor is the empty text.
    const QStringList expected{u"A <http://a.example/>"_s, u"B <http://b.example/caf%C3%A9%20x>"_s,
                               u"E <http://%5Be>"_s};
    EXPECT_EQ(bookmarks(withList(lists, titledUrls)), expected);
    EXPECT_EQ(bookmarks(withList(lists, platform::uniformTypeForPasteboardType(titledUrls))), expected);
}

TEST(BookmarksWithPasteboardTest, AMissingTitleLeavesTheHost)
{
    EXPECT_EQ(bookmarks(withList(QVariantList{QVariantList{u"http://a.example/"_s}}, titledUrls)),
              QStringList{u"a.example <http://a.example/>"_s});
}

TEST(BookmarksWithPasteboardTest, ListsOfAnotherShapeGiveNone)
{
    for (const QVariant& list : {QVariant(u"text"_s), QVariant(QVariantList()), QVariant(QVariantMap()),
                                 QVariant(QVariantList{1, 2}), QVariant(QVariantList{QVariantList{1}, 2})})
        EXPECT_LE(bookmarks(withList(list, titledUrls)).size(), 1);
    Pasteboard damaged;
    damaged.setData("\xFF", titledUrls);
    EXPECT_EQ(bookmarks(damaged), QStringList());
}

TEST(BookmarksWithPasteboardTest, AUrlWithItsName)
{
    EXPECT_EQ(bookmarks(withUrl(u"http://a.example/b"_s)), QStringList{u"a.example <http://a.example/b>"_s});
    Pasteboard pasteboard = withUrl(u"http://a.example/b"_s);
    pasteboard.setString(u"A name"_s, platform::pasteboardUniformTypeUrlName);
    EXPECT_EQ(bookmarks(pasteboard), QStringList{u"A name <http://a.example/b>"_s});
    QMimeData browser;
    browser.setData(u"text/x-moz-url"_s, "http://a.example/\nTitle");
    browser.setText(u"text"_s);
    EXPECT_EQ(bookmarks(Pasteboard(browser)), QStringList{u"Title <http://a.example/>"_s});
}

TEST(BookmarksWithPasteboardTest, ATextIsAnAddressOrAMailAddress)
{
    EXPECT_EQ(bookmarks(withText(u"http://a.example/b"_s)), QStringList{u"a.example <http://a.example/b>"_s});
    EXPECT_EQ(bookmarks(withText(u"me@a.example"_s)), QStringList{u" <mailto:me@a.example>"_s});
    EXPECT_EQ(bookmarks(withText(u"mailto:me@a.example"_s)), QStringList{u" <mailto:me@a.example>"_s});
    EXPECT_EQ(bookmarks(withText(u"http://me@a.example/"_s)), QStringList{u"a.example <http://me@a.example/>"_s});
    // The beginning is looked at as it is written.
    EXPECT_EQ(bookmarks(withText(u"MAILTO:me@a.example"_s)),
              QStringList{u" <mailto:MAILTO:me@a.example>"_s});
    EXPECT_EQ(bookmarks(withText(u"notes://showNote?a=B"_s)),
              QStringList{u"showNote <notes://showNote?a=B>"_s});
    EXPECT_EQ(bookmarks(withText(u"http://a.example/?b|c"_s)),
              QStringList{u"a.example <http://a.example/?b%7Cc>"_s});
    EXPECT_EQ(bookmarks(withText(u"two words"_s)), QStringList());
    EXPECT_EQ(bookmarks(withText(u"http://a.example/\nhttp://b.example/"_s)), QStringList());
    EXPECT_EQ(bookmarks(Pasteboard()), QStringList());
}

TEST(BookmarksWithPasteboardTest, TitledUrlsComeBeforeAUrlAndAUrlBeforeAText)
{
    Pasteboard pasteboard = withText(u"http://text.example/"_s);
    pasteboard.writeUrl(QUrl(u"http://url.example/"_s));
    EXPECT_EQ(bookmarks(pasteboard), QStringList{u"url.example <http://url.example/>"_s});
    ASSERT_TRUE(pasteboard.setPropertyList(QVariantList{QVariantList{u"http://list.example/"_s}, QVariantList{u"L"_s}}, titledUrls));
    EXPECT_EQ(bookmarks(pasteboard), QStringList{u"L <http://list.example/>"_s});
}

TEST(WriteBookmarkFilesTest, WritesEveryForm)
{
    const QList<QLWebBookmarkFile::Pointer> files{
        QLWebBookmarkFile::bookmarkWithName(u"A"_s, QUrl(u"http://a.example/"_s)),
        QLWebBookmarkFile::bookmarkWithName(QString(), QUrl(u"http://b.example/"_s)),
        QLWebBookmarkFile::bookmarkWithName(u"C"_s, QUrl())};
    Pasteboard pasteboard = withList(u"old"_s, u"old type"_s);
    EXPECT_TRUE(QLWebBookmarkFile::writeBookmarkFiles(files, pasteboard));
    EXPECT_FALSE(pasteboard.offers(u"old type"_s));
    const QVariantList addresses{u"http://a.example/"_s, u"http://b.example/"_s, u"http://www.example.com/"_s};
    const QVariantList names{u"A"_s, u"b.example"_s, u"C"_s};
    EXPECT_EQ(pasteboard.propertyListForType(titledUrls), QVariant(QVariantList{QVariant(addresses), QVariant(names)}));
    const QVariantList dictionaries = pasteboard.propertyListForType(labelled)->toList();
    ASSERT_EQ(dictionaries.size(), 3);
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(dictionaries[index].toMap(), (QVariantMap{{u"label"_s, names[index]}, {u"address"_s, addresses[index]}}));
    EXPECT_EQ(pasteboard.url(), QUrl(u"http://a.example/"_s));
    EXPECT_EQ(pasteboard.stringForType(platform::pasteboardTypeString), u"http://a.example/"_s);
    EXPECT_EQ(bookmarks(pasteboard).size(), 3);
}

TEST(WriteBookmarkFilesTest, NoBookmarksAreEmptyLists)
{
    Pasteboard pasteboard;
    EXPECT_TRUE(QLWebBookmarkFile::writeBookmarkFiles({}, pasteboard));
    EXPECT_TRUE(pasteboard.offers(titledUrls));
    EXPECT_FALSE(pasteboard.offers(platform::pasteboardTypeUrl));
    EXPECT_EQ(bookmarks(pasteboard), QStringList());
}

TEST(WriteBookmarkFilesTest, ABookmarkWithoutAUrlGivesNoUrlAndAnEmptyText)
{
    Pasteboard pasteboard;
    EXPECT_TRUE(QLWebBookmarkFile::writeBookmarkFiles(
        {QLWebBookmarkFile::bookmarkWithName(u"Name"_s, platform::Url())}, pasteboard));
    EXPECT_FALSE(pasteboard.offers(platform::pasteboardTypeUrl));
    EXPECT_EQ(pasteboard.stringForType(platform::pasteboardTypeString), u""_s);
    // The lists hold the placeholder instead.
    EXPECT_EQ(bookmarks(pasteboard), QStringList{u"Name <http://www.example.com/>"_s});
}

TEST(PasteboardPropertyTest, WhatIsWrittenIsReadAgain)
{
    test::RandomText random(16);
    for (int count = 0; count < 300; ++count) {
        const QString name = u"x"_s + random.next(20);
        const auto url = platform::Url::fromLooseString(u"http://A.example/"_s + random.next(20));
        ASSERT_TRUE(url.has_value());
        Pasteboard pasteboard;
        QLWebBookmarkFile::writeBookmarkFiles({QLWebBookmarkFile::bookmarkWithName(name, *url)},
                                              pasteboard);
        const auto read = QLWebBookmarkFile::bookmarksWithPasteboard(pasteboard);
        ASSERT_EQ(read.size(), 1);
        EXPECT_EQ(read.first()->URL(), *url);
        EXPECT_EQ(pasteboard.url(), url);
        // Unpaired surrogates cannot be written; the length stays.
        const QString written = QLWebBookmarkFile::bookmarkWithName(name, platform::Url())->name();
        EXPECT_EQ(read.first()->name().size(), written.size());
        if (name.isValidUtf16()) {
            EXPECT_EQ(read.first()->name(), written);
        }
    }
}

TEST(PasteboardPropertyTest, AnyTextIsReadWithoutHarm)
{
    test::RandomText random(17);
    for (int count = 0; count < 2000; ++count) {
        const Pasteboard pasteboard = withText(random.next(15) + (count % 2 ? u"@"_s : u"://"_s) + random.next(15));
        if (canInit(pasteboard)) {
            EXPECT_EQ(bookmarks(pasteboard).size(), 1);
        }
    }
}

} // namespace
