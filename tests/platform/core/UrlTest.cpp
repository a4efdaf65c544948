// SPDX-License-Identifier: MIT
#include "platform/core/Url.h"

#include "platform/core/UrlString.h"
#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;
using platform::Url;

TEST(UrlTest, KeepsItsTextAsItWasWritten)
{
    for (const QString& text :
         {u"HTTP://A.Example/Path"_s, u"notes://showNote?identifier=A-B"_s,
          u"message://%3CId@x%3E"_s, u"http://1.2.3/x"_s, u"http://0x7f.1/"_s,
          u"http://a.example:080/"_s, u"http://a.example:/"_s,
          u"http://a.example/%7Euser/%41%c3%a9%E9"_s, u"http://-a-.example/"_s, u"http://a..b/"_s,
          u"http://%61.example/"_s, u"http://[::1]:80/[x]?[y]#[z]"_s, u"http://a.example:99999/"_s,
          u"x://"_s + QString(100, u'h') + u".example/"_s, u"relative/path"_s, u"//host/path"_s,
          u"mailto:Me@A.Example"_s, u"javascript:void(0)"_s}) {
        const auto url = Url::fromString(text);
        ASSERT_TRUE(url.has_value()) << qPrintable(text);
        EXPECT_EQ(url->absoluteString(), text);
    }
}

TEST(UrlTest, WhatMayNotStandInAUrlMakesNone)
{
    for (const QString& text : {u""_s,
                                u"http://a.example/b c"_s,
                                u"caf\u00e9"_s,
                                u"a|b"_s,
                                u"a%zz"_s,
                                u"a%4"_s,
                                u"a#b#c"_s,
                                u"http://[a"_s,
                                u"http://a]/"_s,
                                u"http://[a]/"_s,
                                u"http://[::1]x/"_s,
                                u"http://[[::1]]/"_s,
                                u"http://a[::1]/"_s,
                                u"http://a.example:port/"_s,
                                u"a\nb"_s,
                                u"<a>"_s,
                                u"1a://b"_s,
                                u":a"_s,
                                u"a_b:c"_s,
                                QString(QChar(0xD800)),
                                u"a\0b"_s})
        EXPECT_EQ(Url::fromString(text), std::nullopt) << qPrintable(text);
}

struct Parts {
    QString text;
    QString scheme;
    QString host;
    QString path;
};

TEST(UrlTest, TellsItsParts)
{
    const Parts table[] = {
        {u"HTTP://me:pw@A.Example:80/a%20b/c;d?e:f@g/#h"_s, u"HTTP"_s, u"A.Example"_s,
         u"/a b/c;d"_s},
        {u"http://a.example"_s, u"http"_s, u"a.example"_s, u""_s},
        {u"http://a.example?b"_s, u"http"_s, u"a.example"_s, u""_s},
        {u"http://me@[::1]:80/"_s, u"http"_s, u"::1"_s, u"/"_s},
        {u"message://%3CId%3E"_s, u"message"_s, u"<Id>"_s, u""_s},
        {u"mailto:me@a.example?subject=a"_s, u"mailto"_s, u""_s, u"me@a.example"_s},
        {u"file:///a/b%2Fc"_s, u"file"_s, u""_s, u"/a/b/c"_s},
        {u"//host/path"_s, u""_s, u"host"_s, u"/path"_s},
        {u"a/b:c"_s, u""_s, u""_s, u"a/b:c"_s},
        {u"http://a.example/%E9"_s, u"http"_s, u"a.example"_s, u"/\ufffd"_s},
        {u"x+1.y-z:"_s, u"x+1.y-z"_s, u""_s, u""_s},
    };
    for (const Parts& parts : table) {
        const Url url = Url::fromString(parts.text).value_or(Url());
        EXPECT_EQ(url.scheme(), parts.scheme) << qPrintable(parts.text);
        EXPECT_EQ(url.host(), parts.host) << qPrintable(parts.text);
        EXPECT_EQ(url.path(), parts.path) << qPrintable(parts.text);
    }
    EXPECT_EQ(Url().scheme() + Url().host() + Url().path(), QString());
    EXPECT_TRUE(Url().isEmpty());
}

TEST(UrlTest, AQUrlIsItsEncodedText)
{
    const Url url = QUrl(u"http://b\u00fccher.example/caf\u00e9 x"_s);
    EXPECT_EQ(url.absoluteString(), u"http://xn--bcher-kva.example/caf%C3%A9%20x"_s);
    EXPECT_EQ(url.toQUrl(), QUrl(u"http://b\u00fccher.example/caf\u00e9 x"_s));
    EXPECT_TRUE(Url(QUrl()).isEmpty());
    EXPECT_TRUE(Url(QUrl(u"http://[bad"_s)).isEmpty());
    EXPECT_FALSE(Url::fromString(u"http://a..b/"_s)->toQUrl().isValid());
}

TEST(UrlTest, ALooseAddressIsEscapedWhenItHasAScheme)
{
    const auto loose = [](const QString& text) {
        return Url::fromLooseString(text).value_or(Url()).absoluteString();
    };
    EXPECT_EQ(loose(u"http://a.example/a|b[c]\u00e9 d"_s),
              u"http://a.example/a%7Cb%5Bc%5D%C3%A9%20d"_s);
    EXPECT_EQ(loose(u"HTTP://A.Example/%7e"_s), u"HTTP://A.Example/%7e"_s);
    EXPECT_EQ(loose(u"a/b"_s), u"a/b"_s);
    EXPECT_EQ(loose(u"x://"_s + QChar(0xD800)), u"x://%EF%BF%BD"_s);
    EXPECT_EQ(loose(u"two words"_s), QString());
    EXPECT_EQ(loose(u""_s), QString());
}

class UrlPropertyTest : public ::testing::TestWithParam<unsigned> {
protected:
    test::RandomText m_random{GetParam()};
};

TEST_P(UrlPropertyTest, ATextIsNoUrlOrStaysAsItIs)
{
    const QString beginnings[] = {u""_s, u"http://"_s, u"http://a.example/"_s, u"x:"_s,
                                  u"http://[::1]"_s};
    for (int count = 0; count < 4000; ++count) {
        const QString text = beginnings[m_random.number(0, 4)] + m_random.next(8);
        const auto url = Url::fromString(text);
        if (!url)
            continue;
        EXPECT_EQ(url->absoluteString(), text);
        EXPECT_LE(url->scheme().size() + url->host().size() + url->path().size(), text.size());
        EXPECT_TRUE(!url->toQUrl().isValid() ||
                    Url::fromString(Url(url->toQUrl()).absoluteString()));
    }
}

TEST_P(UrlPropertyTest, AnyLooseAddressIsAStrictOneAfterwards)
{
    for (int count = 0; count < 4000; ++count) {
        const auto url = Url::fromLooseString(u"http://a.example/"_s + m_random.next(20));
        ASSERT_TRUE(url.has_value());
        EXPECT_EQ(Url::fromString(url->absoluteString()), url);
        static_cast<void>(Url::fromLooseString(m_random.next(20)));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UrlPropertyTest, ::testing::Values(20U, 20130417U, 0xABCDU));

TEST(UrlTextFromBytesTest, AnyBytesMakeATextOfUrlCharacters)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += char(byte);
    const QString text = platform::urlTextFromBytes(all);
    EXPECT_TRUE(platform::holdsUrlCharactersOnly(text));
    EXPECT_EQ(platform::urlTextFromBytes(text.toLatin1()), text);
    EXPECT_EQ(QByteArray::fromPercentEncoding(text.toLatin1()), all);
}

} // namespace
