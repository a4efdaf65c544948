// SPDX-License-Identifier: MIT
#include "webcapture/WebArchiveCompletion.h"
#include "platform/core/SystemLog.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/webview/WebView.h"

namespace {

using platform::PropertyListFormat;

class WebArchiveCompletionTest : public ::testing::Test {
protected:
    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    std::optional<QByteArray> complete(const QByteArray& data)
    {
        return completedWebArchiveData(data, m_view.mainFrame(), {},
                                       QUrl(text("http://example.org/a%20b")), &m_error);
    }
    static QByteArray archive(PropertyListFormat format)
    {
        const QVariantMap mainResource = {{text("WebResourceURL"), text("http://example.org/")}};
        return *platform::propertyListData(QVariantMap{{text("WebMainResource"), mainResource}},
                                           format);
    }

    platform::WebView m_view;
    platform::Error m_error;
    QStringList m_systemLog;

private:
    platform::SystemLogObserver m_observer{[this](const QString& message) {
        m_systemLog += message;
    }};
};

TEST_F(WebArchiveCompletionTest, TheDataKeepsItsFormOfPropertyList)
{
    const auto binary = complete(archive(PropertyListFormat::Binary));
    ASSERT_TRUE(binary);
    EXPECT_TRUE(binary->startsWith("bplist00"));
    const auto xml = complete(archive(PropertyListFormat::Xml));
    ASSERT_TRUE(xml);
    EXPECT_TRUE(xml->startsWith("<?xml"));
    EXPECT_EQ(platform::propertyListFromData(*binary), platform::propertyListFromData(*xml));
    EXPECT_TRUE(m_error.isNull());
    EXPECT_TRUE(m_systemLog.isEmpty());
}

TEST_F(WebArchiveCompletionTest, TheClipsAddressIsAllThatIsAddedBesideTheLists)
{
    const QVariantMap result =
        platform::propertyListFromData(*complete(archive(PropertyListFormat::Binary)))->toMap();
    EXPECT_EQ(result.keys(), QStringList({text("QuilleryResource"), text("WebMainResource"),
                                          text("WebSubframeArchives"), text("WebSubresources")}));
    const QVariantMap expected = {{text("QLOriginalWebURL"), text("http://example.org/a%20b")}};
    EXPECT_EQ(result.value(text("QuilleryResource")).toMap(), expected);
}

TEST_F(WebArchiveCompletionTest, DataThatIsNoPropertyListIsAnErrorAndALine)
{
    for (const QByteArray& data :
         {QByteArray("bplist00 and then nothing"), QByteArray("<plist"), QByteArray()}) {
        m_error = {};
        m_systemLog.clear();
        EXPECT_FALSE(complete(data)) << data.constData();
        EXPECT_FALSE(m_error.isNull());
        EXPECT_EQ(m_systemLog, QStringList("Couldn't create property list to save web archive: " +
                                           m_error.description()));
    }
}

TEST_F(WebArchiveCompletionTest, ADictionaryThatCannotBeWrittenIsAnErrorAndALine)
{
    // Two keys that are no text, each half of a surrogate pair, would become one when written.
    const QVariantMap keys = {{QString(QChar(0x4E00)), 1}, {QString(QChar(0x4E01)), 2}};
    QByteArray data = *platform::propertyListData(keys, PropertyListFormat::Binary);
    data.replace(QByteArray("\x4E\x00", 2), QByteArray("\xD8\x00", 2));
    data.replace(QByteArray("\x4E\x01", 2), QByteArray("\xD8\x01", 2));
    ASSERT_TRUE(platform::propertyListFromData(data));
    EXPECT_FALSE(complete(data));
    EXPECT_FALSE(m_error.isNull());
    EXPECT_EQ(m_systemLog,
              QStringList("Couldn't create data from property list to save web archive: " +
                          m_error.description()));
}

TEST_F(WebArchiveCompletionTest, WithoutAnErrorParameterTheFailureIsTheReturnValue)
{
    EXPECT_FALSE(completedWebArchiveData("bplist00", m_view.mainFrame(), {}, QUrl()));
}

} // namespace
