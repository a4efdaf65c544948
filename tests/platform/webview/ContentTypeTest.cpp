// SPDX-License-Identifier: MIT
#include "platform/webview/ContentType.h"

namespace {

using namespace platform;

TEST(ContentTypeTest, ReadsTypeAndCharset)
{
    const ContentType type = parseContentType(u" Text/HTML ; x=y; Charset=\"UTF-8\"");
    EXPECT_EQ(type.mimeType, QStringLiteral("text/html"));
    EXPECT_EQ(type.charset, QStringLiteral("utf-8"));
    EXPECT_EQ(parseContentType(u"text/css, text/css").mimeType, QStringLiteral("text/css"));
    EXPECT_EQ(parseContentType(u"nonsense").mimeType, QString());
    EXPECT_EQ(parseContentType(u"").charset, QString());
}

TEST(ContentTypeTest, KnowsExtensionsOfPaths)
{
    EXPECT_EQ(mimeTypeForPath(u"/a.b/c.PNG"), QStringLiteral("image/png"));
    EXPECT_EQ(mimeTypeForPath(u"/a.png/c"), QString());
    EXPECT_EQ(mimeTypeForPath(u"/a.unknown"), QString());
}

TEST(ContentTypeTest, SeesTypesInBytes)
{
    EXPECT_EQ(mimeTypeOfBytes("\x89PNG\r\n\x1A\n...."), QStringLiteral("image/png"));
    EXPECT_EQ(mimeTypeOfBytes("RIFF....WEBPVP8 "), QStringLiteral("image/webp"));
    EXPECT_EQ(mimeTypeOfBytes("\xEF\xBB\xBF\n <!DOCTYPE HTML>"), QStringLiteral("text/html"));
    EXPECT_EQ(mimeTypeOfBytes("<brew>"), QStringLiteral("text/plain"));
    EXPECT_EQ(mimeTypeOfBytes("<?xml version='1.0'?><svg/>"), QStringLiteral("image/svg+xml"));
    EXPECT_EQ(mimeTypeOfBytes("plain"), QStringLiteral("text/plain"));
    EXPECT_EQ(mimeTypeOfBytes(QByteArrayView("\0\1\2", 3)), QStringLiteral("application/octet-stream"));
    EXPECT_EQ(mimeTypeOfBytes(""), QStringLiteral("text/plain"));
}

TEST(ContentTypeTest, KnowsWhatAViewShows)
{
    EXPECT_TRUE(isShowableType(QStringLiteral("text/html")));
    EXPECT_TRUE(isShowableType(QStringLiteral("image/svg+xml")));
    EXPECT_TRUE(isShowableType(QStringLiteral("application/pdf")));
    EXPECT_FALSE(isShowableType(QStringLiteral("application/zip")));
    EXPECT_TRUE(isXmlType(QStringLiteral("application/xhtml+xml")));
    EXPECT_FALSE(isXmlType(QStringLiteral("text/html")));
}

} // namespace
