// SPDX-License-Identifier: MIT
#include "formats/QLWebBookmarkFileReading.h"

#include "formats/QLWebBookmarkFile.h"
#include "platform/files/FileManager.h"
#include "platform/files/ResourceValues.h"
#include "platform/propertylist/PropertyList.h"
#include "support/RandomText.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

using namespace Qt::StringLiterals;

QUrl fileUrl(const QString& path) { return QUrl::fromLocalFile(path); }

class WebBookmarkFilesTest : public ::testing::Test {
protected:
    [[nodiscard]] QLWebBookmarkFile::Pointer read(const QString& name, const QByteArray& bytes) const
    {
        return QLWebBookmarkFile::bookmarkWithFileAtURL(fileUrl(m_folder.write(name, bytes)));
    }
    [[nodiscard]] QString write(const QString& name, const QString& url) const
    {
        const QString path = m_folder.filePath("written.webloc");
        EXPECT_TRUE(QLWebBookmarkFile::bookmarkWithName(name, QUrl(url))->writeToFileAtURL(fileUrl(path)));
        return path;
    }

    test::ScratchFolder m_folder;
};

constexpr const char* xmlForm = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<plist version=\"1.0\"><dict>"
                                "<key>URL</key><string>http://a.example/?b&amp;c</string>"
                                "<key>public.url-name</key><string>Caf\xC3\xA9</string></dict></plist>";

TEST_F(WebBookmarkFilesTest, WritesABinaryPropertyList)
{
    const auto list = platform::readPropertyList(write(u"Caf\u00e9"_s, u"http://a.example/?b&c"_s));
    EXPECT_EQ(list, QVariant(QVariantMap{{u"URL"_s, u"http://a.example/?b&c"_s}, {u"public.url-name"_s, u"Caf\u00e9"_s}}));
    EXPECT_TRUE(m_folder.read(u"written.webloc"_s).startsWith("bplist00"));
}

TEST_F(WebBookmarkFilesTest, LeavesOutANameThatIsNotSetAndWritesAnEmptyUrl)
{
    EXPECT_EQ(platform::readPropertyList(write(QString(), u"http://a.example/"_s)),
              QVariant(QVariantMap{{u"URL"_s, u"http://a.example/"_s}}));
    EXPECT_EQ(platform::readPropertyList(write(u"Name"_s, QString())),
              QVariant(QVariantMap{{u"URL"_s, u""_s}, {u"public.url-name"_s, u"Name"_s}}));
}

TEST_F(WebBookmarkFilesTest, ReadsEveryFormOfPropertyList)
{
    const auto binary = *platform::propertyListData(*platform::propertyListFromData(QByteArrayView(xmlForm)),
                                                    platform::PropertyListFormat::Binary);
    const QByteArray text = "{ URL = \"http://a.example/?b&c\"; \"public.url-name\" = \"Caf\\U00e9\"; }";
    for (const QByteArray& bytes : {QByteArray(xmlForm), binary, text}) {
        const auto bookmark = read(u"File name.webloc"_s, bytes);
        EXPECT_EQ(bookmark->URL(), QUrl(u"http://a.example/?b&c"_s)) << bytes.constData();
        EXPECT_EQ(bookmark->name(), u"Caf\u00e9"_s);
        EXPECT_EQ(bookmark->fileURL(), QUrl());
    }
}

TEST_F(WebBookmarkFilesTest, TheFilesNameStandsInForAMissingOne)
{
    EXPECT_EQ(read(u"My page.v2.webloc"_s, "{ URL = \"http://a.example/\"; }")->name(), u"My page.v2"_s);
    EXPECT_EQ(read(u"My page.webloc"_s, "{ \"public.url-name\" = \"\"; }")->name(), u"My page"_s);
}

TEST_F(WebBookmarkFilesTest, WhatCannotBeReadLeavesABookmarkWithTheFilesName)
{
    for (const char* bytes : {"", "bplist00", "<plist>", "( a, b )", "text", "{ URL = ( a ); }", "{ URL = \"a b\"; }"}) {
        const auto bookmark = read(u"File.webloc"_s, bytes);
        EXPECT_EQ(bookmark->URL(), QUrl()) << bytes;
        EXPECT_EQ(bookmark->name(), u"File"_s);
    }
    EXPECT_EQ(QLWebBookmarkFile::bookmarkWithFileAtURL(fileUrl(m_folder.filePath("nothing.webloc")))->name(),
              u"nothing"_s);
    EXPECT_TRUE(std::make_shared<QLWebBookmarkFile>()->readWeblocFile(QUrl()));
}

TEST_F(WebBookmarkFilesTest, ReadingKeepsANameThatIsSetAlready)
{
    const auto bookmark = QLWebBookmarkFile::bookmarkWithName(u"Mine"_s, QUrl(u"http://mine.example/"_s));
    EXPECT_TRUE(bookmark->readWeblocFile(fileUrl(m_folder.write(u"a.webloc"_s, "{ URL = \"\"; }"))));
    EXPECT_EQ(bookmark->name(), u"Mine"_s);
    EXPECT_EQ(bookmark->URL(), QUrl(u"http://mine.example/"_s));
}

TEST_F(WebBookmarkFilesTest, ReadsAShortcutUpToTheFirstBlankOrLineEnd)
{
    const QUrl url(u"http://a.example/b"_s);
    for (const char* bytes :
         {"[InternetShortcut]\r\nURL=http://a.example/b\r\nIconIndex=0\r\n", "URL=http://a.example/b and more",
          "\xEF\xBB\xBF[InternetShortcut]\r\nURL=http://a.example/b", "URL=http://a.example/b\xC2\xA0x",
          "URL=http://a.example/b\xE2\x80\xA8x", "xURL=http://a.example/b\nURL=http://other.example/"}) {
        const auto bookmark = read(u"A page.url"_s, bytes);
        EXPECT_EQ(bookmark->URL(), url) << bytes;
        EXPECT_EQ(bookmark->name(), u"A page"_s);
    }
}

TEST_F(WebBookmarkFilesTest, AShortcutWithoutAddressHasTheFilesNameAlone)
{
    for (const char* bytes : {"URL=", "URL= http://a.example/", "URL=\r\nhttp://a.example/", "URL=caf\xC3\xA9"}) {
        const auto bookmark = read(u"A page.url"_s, bytes);
        EXPECT_EQ(bookmark->URL(), QUrl()) << bytes;
        EXPECT_EQ(bookmark->name(), u"A page"_s);
    }
}

TEST_F(WebBookmarkFilesTest, BytesOfAShortcutThatAreNoTextSpoilTheirOwnLineAlone)
{
    EXPECT_EQ(read(u"a.url"_s, "IconFile=Jos\xE9\r\nURL=http://a.example/\r\nX=\xFF\xFE")->URL(),
              QUrl(u"http://a.example/"_s));
    EXPECT_EQ(read(u"a.url"_s, "URL=http://a.example/caf\xE9\r\n")->URL().absoluteString(),
              u"http://a.example/caf%C3%A9"_s);
}

TEST_F(WebBookmarkFilesTest, AnAddressBeyondTheRulesIsEscaped)
{
    const QString expected = u"http://a.example/caf%C3%A9?b%7Cc"_s;
    EXPECT_EQ(read(u"a.url"_s, "URL=http://a.example/caf\xC3\xA9?b|c\r\n")->URL().absoluteString(),
              expected);
    EXPECT_EQ(read(u"a.webloc"_s, "{ URL = \"http://a.example/caf\\U00e9?b|c\"; }")
                  ->URL()
                  .absoluteString(),
              expected);
}

TEST_F(WebBookmarkFilesTest, AnAddressBetweenProgramsIsReadAndWrittenAsItIs)
{
    for (const QByteArray& address :
         {QByteArray("message://%3CId@x%3E"), QByteArray("notes://showNote?a=B"),
          QByteArray("HTTP://A.Example/%7Eb")}) {
        const auto bookmark = read(u"a.inetloc"_s, "{ URL = \"" + address + "\"; }");
        EXPECT_EQ(bookmark->URL().absoluteString(), QString::fromLatin1(address));
        const QUrl copy = fileUrl(m_folder.filePath("copy.inetloc"));
        ASSERT_TRUE(bookmark->writeToFileAtURL(copy));
        EXPECT_EQ(QLWebBookmarkFile::bookmarkWithFileAtURL(copy)->URL(), bookmark->URL());
        EXPECT_EQ(read(u"a.url"_s, "URL=" + address)->URL(), bookmark->URL());
    }
}

TEST_F(WebBookmarkFilesTest, AShortcutWithoutUrlLineChangesNothing)
{
    const auto bookmark = QLWebBookmarkFile::bookmarkWithName(u"Mine"_s, QUrl(u"http://mine.example/"_s));
    for (const char* bytes : {"", "[InternetShortcut]", "url=http://a.example/",
                              "URL = http://a.example/", "\xFF\xFEU\0R\0L\0=\0", "\xFF"}) {
        EXPECT_FALSE(bookmark->readURLFile(fileUrl(m_folder.write(u"a.url"_s, bytes)))) << bytes;
        EXPECT_EQ(bookmark->name(), u"Mine"_s);
        EXPECT_EQ(bookmark->URL(), QUrl(u"http://mine.example/"_s));
    }
    EXPECT_FALSE(bookmark->readURLFile(fileUrl(m_folder.filePath("nothing.url"))));
}

TEST_F(WebBookmarkFilesTest, OnlyTheExtensionInSmallLettersIsAShortcuts)
{
    EXPECT_EQ(read(u"a.URL"_s, "URL=http://a.example/")->URL(), QUrl());
    EXPECT_EQ(read(u"a.URL"_s, xmlForm)->URL(), QUrl(u"http://a.example/?b&c"_s));
}

TEST_F(WebBookmarkFilesTest, AFileThatIsReplacedKeepsItsCreationDate)
{
    const QString path = m_folder.write(u"written.webloc"_s, "old");
    platform::ResourceValues values;
    values.creationDate = QDateTime(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC);
    if (!platform::setResourceValues(path, values))
        GTEST_SKIP() << "the file system keeps no attributes";
    ASSERT_EQ(write(u"Name"_s, u"http://a.example/"_s), path);
    EXPECT_EQ(platform::resourceValues(path)->creationDate, values.creationDate);
}

TEST_F(WebBookmarkFilesTest, AFileThatCannotBeWrittenIsAnError)
{
    platform::Error error;
    const auto bookmark = QLWebBookmarkFile::bookmarkWithName(u"Name"_s, QUrl());
    EXPECT_FALSE(bookmark->writeToFileAtURL(fileUrl(m_folder.filePath("no/folder/a.webloc")), &error));
    EXPECT_EQ(error.code(), platform::FileNoSuchFileError);
    EXPECT_FALSE(bookmark->writeToFileAtURL(QUrl()));
}

TEST_F(WebBookmarkFilesTest, WhatIsWrittenIsReadAgain)
{
    test::RandomText random(14);
    for (int count = 0; count < 300; ++count) {
        const QString name = random.next(30);
        const auto written = QLWebBookmarkFile::bookmarkWithName(name, QUrl(u"http://a.example/%1?q=%C3%A9"_s.arg(count)));
        const QUrl url = fileUrl(m_folder.filePath("written.webloc"));
        ASSERT_TRUE(written->writeToFileAtURL(url));
        const auto again = QLWebBookmarkFile::bookmarkWithFileAtURL(url);
        EXPECT_EQ(again->URL(), written->URL());
        // Unpaired surrogates cannot be written; the length stays.
        if (name.isValidUtf16()) {
            EXPECT_EQ(again->name(), written->name() == u"a.example"_s ? u"written"_s : written->name());
        }
    }
}

TEST(AddressInShortcutTest, AnyTextIsReadWithoutHarm)
{
    test::RandomText random(15);
    for (int count = 0; count < 3000; ++count) {
        const QString before = random.next(10).remove(u'U');
        const auto address = addressInShortcut(before + u"URL="_s + random.next(30));
        ASSERT_TRUE(address.has_value());
        EXPECT_FALSE(address->contains(u' ') || address->contains(u'\n') || address->contains(u'\u2028'));
        EXPECT_EQ(addressInShortcut(before), std::nullopt);
    }
}

} // namespace
