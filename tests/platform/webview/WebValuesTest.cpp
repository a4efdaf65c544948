// SPDX-License-Identifier: MIT
// The values that the loader takes and gives.
#include "platform/webview/DataUrl.h"
#include "platform/webview/LoadErrors.h"
#include "platform/webview/LoadPolicy.h"
#include "platform/webview/URLResponse.h"
#include "platform/webview/WebPreferences.h"
#include "support/ScratchFolder.h"

#include "platform/propertylist/KeyedArchiver.h"

namespace {

using platform::LoadPolicy;
using platform::parseDataUrl;
using platform::URLResponse;

TEST(DataUrlTest, ReadsTypeAndData)
{
    const auto plain = parseDataUrl(QStringLiteral("data:,a%20b"));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->type.mimeType, QStringLiteral("text/plain"));
    EXPECT_EQ(plain->data, QByteArray("a b"));
    const auto encoded = parseDataUrl(QStringLiteral("data:image/PNG;charset=x;base64, aGV%20sbG8="));
    ASSERT_TRUE(encoded);
    EXPECT_EQ(encoded->type.mimeType, QStringLiteral("image/png"));
    EXPECT_EQ(encoded->data, QByteArray("hello"));
    EXPECT_EQ(parseDataUrl(QStringLiteral("data:;charset=utf-8,x"))->type.charset, QStringLiteral("utf-8"));
    EXPECT_FALSE(parseDataUrl(QStringLiteral("data:text/html")));
    EXPECT_FALSE(parseDataUrl(QStringLiteral("data:;base64,!!")));
}

TEST(LoadPolicyTest, KeepsTheWebFromFilesAndFilesInTheirFolder)
{
    const test::ScratchFolder folder;
    const auto address = [&](const char* name) {
        return QString::fromLatin1(QUrl::fromLocalFile(folder.filePath(name)).toEncoded());
    };
    folder.write(QStringLiteral("a/page.html"), "");
    folder.write(QStringLiteral("a/sub/in.png"), "");
    folder.write(QStringLiteral("ab/out.png"), "");
    const LoadPolicy local(address("a/page.html"));
    const QString page = address("a/page.html");
    EXPECT_TRUE(local.mayLoad(page, QString()));
    EXPECT_TRUE(local.mayLoad(address("a/sub/in.png"), page));
    EXPECT_FALSE(local.mayLoad(address("ab/out.png"), page));
    EXPECT_FALSE(local.mayLoad(address("a/sub/in.png"), QStringLiteral("http://host/")));
    EXPECT_FALSE(local.mayLoad(address("a/sub/in.png"), QString()));
    EXPECT_TRUE(local.mayLoad(QStringLiteral("http://host/a"), page));
    const LoadPolicy web(QStringLiteral("http://host/"));
    EXPECT_FALSE(web.mayLoad(page, QStringLiteral("http://host/")));
    EXPECT_FALSE(web.mayLoad(page, page));
    EXPECT_FALSE(web.mayLoad(QStringLiteral("ftp://host/"), QStringLiteral("http://host/")));
}

TEST(LoadPolicyTest, TellsAServerNoMoreThanItMay)
{
    EXPECT_EQ(LoadPolicy::referrer(QStringLiteral("http://h/a"), QStringLiteral("http://h/b?c")),
              QStringLiteral("http://h/b?c"));
    EXPECT_EQ(LoadPolicy::referrer(QStringLiteral("http://o/a"), QStringLiteral("http://h/b?c")),
              QStringLiteral("http://h/"));
    EXPECT_EQ(LoadPolicy::referrer(QStringLiteral("http://h/a"), QStringLiteral("https://h/b")), QString());
    EXPECT_EQ(LoadPolicy::referrer(QStringLiteral("http://h/a"), QStringLiteral("file:///b")), QString());
}

TEST(URLResponseTest, TextsOfStatusCodes)
{
    EXPECT_EQ(URLResponse::localizedStringForStatusCode(404), QStringLiteral("not found"));
    EXPECT_EQ(URLResponse::localizedStringForStatusCode(401), QStringLiteral("unauthorized"));
    EXPECT_EQ(URLResponse::localizedStringForStatusCode(499), QStringLiteral("client error"));
    EXPECT_EQ(URLResponse::localizedStringForStatusCode(599), QStringLiteral("server error"));
    EXPECT_EQ(URLResponse::localizedStringForStatusCode(999), QString());
}

TEST(URLResponseTest, KnowsItsHeadersAndCanBeArchived)
{
    auto response = std::make_shared<URLResponse>(QStringLiteral("http://h/a|b"), QStringLiteral("text/html"),
                                                  5, QStringLiteral("utf-8"));
    EXPECT_EQ(response->archivedClassNames().first(), QStringLiteral("NSURLResponse"));
    response->setHttp(200, {{QStringLiteral("X-Name"), QStringLiteral("v")}});
    EXPECT_EQ(response->archivedClassNames().first(), QStringLiteral("NSHTTPURLResponse"));
    EXPECT_EQ(response->headerField(QLatin1String("x-name")), QStringLiteral("v"));
    EXPECT_EQ(response->absoluteString(), QStringLiteral("http://h/a|b"));
    EXPECT_TRUE(URLResponse().url().isEmpty());
    const auto archive = platform::KeyedArchiver::archivedDataWithRootObject(
        std::static_pointer_cast<platform::KeyedCoding>(response));
    ASSERT_TRUE(archive);
    EXPECT_TRUE(archive->startsWith("bplist00"));
}

TEST(LoadErrorsTest, CarryThePlatformsCodes)
{
    EXPECT_EQ(platform::transferError(QNetworkReply::HostNotFoundError).code(), -1003);
    EXPECT_EQ(platform::urlError(platform::UrlErrorCancelled).code(), -999);
    EXPECT_TRUE(platform::urlError(platform::UrlErrorTimedOut).hasLocalizedDescription());
}

TEST(LoadErrorsTest, ATransferThatNobodyHereCancelledIsNotCalledCancelled)
{
    // Who reads that code takes it that somebody else ends the load.
    for (int error = 0; error < 1000; ++error) {
        const auto transfer = static_cast<QNetworkReply::NetworkError>(error);
        EXPECT_NE(platform::transferError(transfer).code(), platform::UrlErrorCancelled) << error;
    }
}

TEST(WebPreferencesTest, BeginWithThePlatformsDefaults)
{
    const platform::WebPreferences preferences(QStringLiteral("Download"));
    EXPECT_EQ(preferences.identifier(), QStringLiteral("Download"));
    EXPECT_EQ(preferences.defaultFontSize(), 16);
    EXPECT_EQ(preferences.defaultFixedFontSize(), 13);
    EXPECT_TRUE(preferences.isJavaScriptEnabled());
    EXPECT_EQ(preferences.cacheModel(), platform::WebCacheModel::DocumentBrowser);
}

} // namespace
