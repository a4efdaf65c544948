// SPDX-License-Identifier: MIT
#include "webcapture/SubresourceMerging.h"

#include <gtest/gtest.h>

namespace {

using platform::WebResource;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QVariantMap listed(const char* address)
{
    return {{text("WebResourceURL"), text(address)}, {text("WebResourceData"), QByteArray("old")}};
}

WebResource received(const char* address, const QByteArray& data, const char* type = "image/png")
{
    return WebResource(text(address), data, text(type));
}

TEST(SubresourceMergingTest, WhatIsListedStaysAsItIsAndWins)
{
    const QVariantList list = {listed("http://h/b"), QVariantMap{{text("Other"), 1}},
                               listed("http://h/a")};
    EXPECT_EQ(mergedSubresources(list, {received("http://h/a", "new")},
                                 {{text("http://h/a"), QByteArray("response")}}),
              list);
}

TEST(SubresourceMergingTest, WhatIsNewFollowsInTheOrderReceived)
{
    const QVariantList merged = mergedSubresources(
        {listed("http://h/b")},
        {received("http://h/z", "z"), received("http://h/b", "b"), received("http://h/a", "a")},
        {});
    const QVariantMap first = {{text("WebResourceURL"), text("http://h/z")},
                               {text("WebResourceData"), QByteArray("z")},
                               {text("WebResourceMIMEType"), text("image/png")}};
    ASSERT_EQ(merged.size(), 3);
    EXPECT_EQ(merged[1].toMap(), first);
    EXPECT_EQ(merged[2].toMap().value(text("WebResourceURL")).toString(), text("http://h/a"));
}

TEST(SubresourceMergingTest, WithoutAListThereIsWhatWasReceived)
{
    EXPECT_EQ(mergedSubresources({}, {received("http://h/a", "a")}, {}).size(), 1);
    EXPECT_TRUE(mergedSubresources({}, {}, {}).isEmpty());
}

TEST(SubresourceMergingTest, WithoutDataOrAddressItIsLeftOut)
{
    const QVariantList merged =
        mergedSubresources({},
                           {received("http://h/none", QByteArray()), received("", "a"),
                            received("http://h/empty", QByteArray(""))},
                           {{QString(), QByteArray("response")}});
    ASSERT_EQ(merged.size(), 1);
    EXPECT_EQ(merged[0].toMap().value(text("WebResourceURL")).toString(), text("http://h/empty"));
    EXPECT_EQ(merged[0].toMap().value(text("WebResourceData")), QVariant(QByteArray("")));
}

TEST(SubresourceMergingTest, WithoutATypeThereIsNoKeyForIt)
{
    const QVariantList merged = mergedSubresources({}, {received("http://h/a", "a", "")}, {});
    EXPECT_EQ(merged[0].toMap().keys(),
              QStringList({text("WebResourceData"), text("WebResourceURL")}));
}

TEST(SubresourceMergingTest, AddressesAreComparedAsTexts)
{
    const QVariantList merged =
        mergedSubresources({listed("http://h/a")},
                           {received("http://h/A", "A"), received("http://h/a?", "query")}, {});
    EXPECT_EQ(merged.size(), 3);
}

TEST(SubresourceMergingTest, OnlyAResponseOfTheSameAddressIsMarked)
{
    const QVariantList merged =
        mergedSubresources({}, {received("http://h/a", "a"), received("http://h/b", "b")},
                           {{text("http://h/a"), QByteArray()}, {text("http://h/B"), "response"}});
    EXPECT_TRUE(merged[0].toMap().contains(text("WebResourceResponse")));
    EXPECT_FALSE(merged[1].toMap().contains(text("WebResourceResponse")));
}

} // namespace
