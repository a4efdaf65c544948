// SPDX-License-Identifier: MIT
#include "platform/core/UrlString.h"

#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;
using platform::urlWithString;

TEST(UrlStringTest, ATextThatIsAUrlMakesOne)
{
    for (const QString& text : {u"http://a.example/b?c=d&e=f#g"_s, u"mailto:me@a.example"_s, u"news:comp.lang"_s,
                                u"file:///Users/me/a%20b"_s, u"relative/path"_s, u"http://[::1]:80/"_s})
        EXPECT_EQ(platform::absoluteStringOfUrl(urlWithString(text).value_or(QUrl())), text);
}

TEST(UrlStringTest, WhatMayNotStandInAUrlMakesNone)
{
    for (const QString& text : {u""_s, u"http://a.example/b c"_s, u"caf\u00e9"_s, u"a|b"_s, u"a%zz"_s, u"a%4"_s, u"a#b#c"_s,
                                u"http://[a"_s, u"http://a.example:port/"_s, u"a\nb"_s, u"<a>"_s, u"1a://:b@:"_s})
        EXPECT_EQ(urlWithString(text), std::nullopt) << qPrintable(text);
}

TEST(UrlStringTest, TheTextOfAUrlMakesTheSameUrl)
{
    test::RandomText random(12);
    for (int count = 0; count < 3000; ++count) {
        const auto url = urlWithString(u"http://a.example/"_s + random.next(6));
        if (url) {
            EXPECT_EQ(urlWithString(platform::absoluteStringOfUrl(*url)), url);
        }
    }
    EXPECT_EQ(platform::absoluteStringOfUrl(QUrl()), QString());
}

} // namespace
