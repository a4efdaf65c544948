// SPDX-License-Identifier: MIT
#include "platform/pasteboard/Pasteboard.h"

#include "platform/pasteboard/PasteboardTypes.h"
#include "support/RandomText.h"

#include <QDate>

namespace {

using namespace Qt::StringLiterals;
using platform::Pasteboard;

QByteArray utf16(const QString& text, bool isBigEndian = false)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += char(isBigEndian ? unit.row() : unit.cell());
        bytes += char(isBigEndian ? unit.cell() : unit.row());
    }
    return bytes;
}

TEST(PasteboardTest, AnEmptyOneOffersNothing)
{
    const Pasteboard pasteboard;
    EXPECT_EQ(pasteboard.formats(), QStringList());
    EXPECT_FALSE(pasteboard.offers(platform::pasteboardTypeString));
    EXPECT_EQ(pasteboard.availableTypeFromArray({platform::pasteboardTypeString, u"a"_s}), std::nullopt);
    EXPECT_EQ(pasteboard.dataForType(u"a"_s), std::nullopt);
    EXPECT_EQ(pasteboard.stringForType(u"a"_s), std::nullopt);
    EXPECT_EQ(pasteboard.propertyListForType(u"a"_s), std::nullopt);
    EXPECT_EQ(pasteboard.url(), std::nullopt);
}

TEST(PasteboardTest, GivesTheFirstOfTheTypesThatItOffers)
{
    Pasteboard pasteboard;
    pasteboard.setData("1", u"one"_s);
    pasteboard.setData("2", u"two"_s);
    EXPECT_EQ(pasteboard.availableTypeFromArray({u"three"_s, u"two"_s, u"one"_s}), u"two"_s);
    EXPECT_EQ(pasteboard.dataForType(u"two"_s), QByteArray("2"));
}

TEST(PasteboardTest, TextIsKnownUnderAllItsNames)
{
    Pasteboard pasteboard;
    pasteboard.setString(u"caf\u00e9"_s, platform::pasteboardTypeString);
    EXPECT_EQ(pasteboard.mimeData()->text(), u"caf\u00e9"_s);
    for (const QString& type : {platform::pasteboardUniformTypeText, platform::pasteboardUniformTypeUtf8Text,
                                platform::pasteboardTypeString, u"public.plain-text"_s})
        EXPECT_EQ(pasteboard.stringForType(type), u"caf\u00e9"_s);
}

TEST(PasteboardTest, BytesThatAreNoTextGiveNone)
{
    Pasteboard pasteboard;
    pasteboard.setData("\xFF", u"bytes"_s);
    EXPECT_EQ(pasteboard.stringForType(u"bytes"_s), std::nullopt);
    EXPECT_EQ(pasteboard.propertyListForType(u"bytes"_s), std::nullopt);
}

TEST(PasteboardTest, PropertyListsComeBackAsTheyWere)
{
    Pasteboard pasteboard;
    const QVariantList list{QVariantList{u"http://a.example/"_s}, QVariantList{u"Caf\u00e9"_s}};
    ASSERT_TRUE(pasteboard.setPropertyList(list, u"WebURLsWithTitlesPboardType"_s));
    EXPECT_EQ(pasteboard.propertyListForType(u"WebURLsWithTitlesPboardType"_s), QVariant(list));
    platform::Error error;
    EXPECT_FALSE(pasteboard.setPropertyList(QVariant(), u"nothing"_s, &error));
    EXPECT_FALSE(error.isNull());
    EXPECT_FALSE(pasteboard.offers(u"nothing"_s));
}

TEST(PasteboardTest, AUrlIsKnownUnderBothNames)
{
    Pasteboard pasteboard;
    const QUrl url(u"http://a.example/b%20c?d#e"_s);
    pasteboard.writeUrl(url);
    EXPECT_TRUE(pasteboard.offers(platform::pasteboardTypeUrl));
    EXPECT_TRUE(pasteboard.offers(platform::pasteboardUniformTypeUrl));
    EXPECT_FALSE(pasteboard.offers(platform::pasteboardUniformTypeUrlName));
    EXPECT_EQ(pasteboard.url(), url);
    EXPECT_EQ(pasteboard.mimeData()->urls(), QList<QUrl>{url});
}

TEST(PasteboardTest, ReadsALinkAsBrowsersOfferIt)
{
    const QString lines = u"http://a.example/\nCaf\u00e9 A"_s;
    for (const QByteArray& bytes : {utf16(lines), utf16(u'\ufeff' + lines), utf16(lines, true), lines.toUtf8()}) {
        QMimeData offered;
        offered.setData(u"text/x-moz-url"_s, bytes);
        const Pasteboard pasteboard(offered);
        EXPECT_EQ(pasteboard.url(), QUrl(u"http://a.example/"_s));
        EXPECT_EQ(pasteboard.stringForType(platform::pasteboardUniformTypeUrlName), u"Caf\u00e9 A"_s);
        EXPECT_EQ(pasteboard.stringForType(platform::pasteboardUniformTypeUrl), u"http://a.example/"_s);
    }
}

TEST(PasteboardTest, ReadsTheOlderLinkFormatAndLists)
{
    QMimeData older;
    older.setData(u"_NETSCAPE_URL"_s, "http://a.example/\nTitle");
    EXPECT_EQ(Pasteboard(older).url(), QUrl(u"http://a.example/"_s));
    EXPECT_EQ(Pasteboard(older).stringForType(platform::pasteboardUniformTypeUrlName), u"Title"_s);
    QMimeData list;
    list.setData(u"text/uri-list"_s, "# comment\r\n\r\nhttp://b.example/\r\nhttp://c.example/\r\n");
    EXPECT_EQ(Pasteboard(list).url(), QUrl(u"http://b.example/"_s));
    EXPECT_FALSE(Pasteboard(list).offers(platform::pasteboardUniformTypeUrlName));
}

TEST(PasteboardTest, TheAddressOfAListIsItsFirst)
{
    QMimeData list;
    list.setData(u"text/uri-list"_s, "# comment\r\nhttp://b.example/\r\nhttp://c.example/\r\n");
    const Pasteboard pasteboard(list);
    for (const QString& type : {platform::pasteboardTypeUrl, platform::pasteboardUniformTypeUrl}) {
        EXPECT_EQ(pasteboard.stringForType(type), u"http://b.example/"_s);
        EXPECT_EQ(pasteboard.dataForType(type), QByteArray("http://b.example/"));
    }
}

TEST(PasteboardTest, AddressesBeyondTheRulesAreEscaped)
{
    QMimeData offered;
    offered.setData(u"text/x-moz-url"_s, utf16(u"http://a.example/a|b[c]?d=\u00e9 f\nTitle"_s));
    const auto url = Pasteboard(offered).url();
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), u"http://a.example/a%7Cb%5Bc%5D?d=%C3%A9%20f"_s);
}

TEST(PasteboardTest, AWrittenUrlKeepsItsText)
{
    for (const QString& text :
         {u"notes://showNote?a=B"_s, u"message://%3CId@x%3E"_s, u"HTTP://A.Example/%7Eb"_s}) {
        Pasteboard pasteboard;
        pasteboard.writeUrl(platform::Url::fromString(text).value());
        EXPECT_EQ(pasteboard.url().value_or(platform::Url()).absoluteString(), text);
        EXPECT_EQ(pasteboard.mimeData()->data(u"text/uri-list"_s), text.toLatin1() + "\r\n");
    }
}

TEST(PasteboardTest, ATypeAndTheUniformTypeMadeOfItAreOne)
{
    const QString type = u"WebURLsWithTitlesPboardType"_s;
    const QString uniformType = platform::uniformTypeForPasteboardType(type);
    for (const auto& [written, read] :
         {std::pair(type, uniformType), std::pair(uniformType, type)}) {
        Pasteboard pasteboard;
        pasteboard.setData("x", written);
        EXPECT_TRUE(pasteboard.offers(read));
        EXPECT_EQ(pasteboard.availableTypeFromArray({u"other"_s, read}), read);
        EXPECT_EQ(pasteboard.dataForType(read), QByteArray("x"));
        EXPECT_FALSE(pasteboard.offers(u"dyn.a"_s));
    }
}

TEST(PasteboardTest, ALinkThatIsNoUrlGivesNone)
{
    for (const char* bytes : {"", "\n", "not a url\nTitle", "http://a.example:port/\n"}) {
        QMimeData offered;
        offered.setData(u"text/x-moz-url"_s, bytes);
        const Pasteboard pasteboard(offered);
        EXPECT_TRUE(pasteboard.offers(platform::pasteboardTypeUrl));
        EXPECT_EQ(pasteboard.url(), std::nullopt) << bytes;
    }
}

TEST(PasteboardTest, WritingToABorrowedOneLeavesTheOthersDataAlone)
{
    QMimeData offered;
    offered.setText(u"theirs"_s);
    Pasteboard pasteboard(offered);
    pasteboard.setString(u"mine"_s, u"own"_s);
    EXPECT_EQ(pasteboard.formats(), QStringList{u"own"_s});
    EXPECT_EQ(offered.text(), u"theirs"_s);
    EXPECT_FALSE(offered.hasFormat(u"own"_s));
}

TEST(PasteboardTest, ClearingDropsEverything)
{
    Pasteboard pasteboard;
    pasteboard.setString(u"text"_s, platform::pasteboardTypeString);
    pasteboard.clearContents();
    EXPECT_EQ(pasteboard.formats(), QStringList());
}

TEST(PasteboardTest, AnyLinkDataIsReadWithoutHarm)
{
    test::RandomText random(11);
    for (int count = 0; count < 2000; ++count) {
        QMimeData offered;
        const QString text = random.next(20);
        offered.setData(u"text/x-moz-url"_s, count % 2 ? utf16(text) : text.toUtf8());
        offered.setData(u"text/uri-list"_s, random.next(20).toUtf8());
        const Pasteboard pasteboard(offered);
        const auto url = pasteboard.url();
        EXPECT_TRUE(!url || platform::Url::fromString(url->absoluteString()));
        static_cast<void>(pasteboard.stringForType(platform::pasteboardUniformTypeUrlName));
    }
}

TEST(PasteboardTypesTest, AnUndeclaredTypeHasADynamicUniformType)
{
    EXPECT_EQ(platform::uniformTypeForPasteboardType(u"WebURLsWithTitlesPboardType"_s),
              u"dyn.ah62d4rv4gu8zs3pcnzme2641rf4guzdmsv0gn64uqm10c6xenv61a3k"_s);
    EXPECT_EQ(platform::uniformTypeForPasteboardType(u"Apple URL pasteboard type"_s),
              u"dyn.ah62d4rv4gu8yc6durvwwaznwmuuha2pxsvw0e55bsmwca7d3sbwu"_s);
}

} // namespace
