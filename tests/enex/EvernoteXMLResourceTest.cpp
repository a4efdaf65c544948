// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLResource.h"

#include "enex/EvernoteXMLErrors.h"

#include "support/ScratchFolder.h"

#include <QRegularExpression>

namespace {

using platform::Error;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class EvernoteXMLResourceTest : public ::testing::Test {
protected:
    void addData(const char* base64) { m_resource.appendBase64Data(base64); }

    EvernoteXMLItemType typeOf(const char* mime, const char* filename = "")
    {
        EvernoteXMLResource resource;
        resource.setMime(text(mime));
        resource.attributes().setFilename(text(filename));
        return resource.itemType();
    }

    EvernoteXMLResource m_resource;
    Error m_error;
};

TEST_F(EvernoteXMLResourceTest, StartsEmptyWithAFreshIdentifier)
{
    const QRegularExpression uuid(text("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(uuid.match(m_resource.identifier()).hasMatch());
    EXPECT_NE(m_resource.identifier(), EvernoteXMLResource().identifier());
    EXPECT_TRUE(m_resource.mime().isEmpty());
    EXPECT_TRUE(m_resource.base64Data().isEmpty());
    EXPECT_TRUE(m_resource.attributes().filename().isEmpty());
    EXPECT_FALSE(m_resource.attributes().timestamp());
    EXPECT_EQ(m_resource.width(), 0);
    EXPECT_EQ(m_resource.height(), 0);
    EXPECT_FALSE(m_resource.contentData());
}

TEST_F(EvernoteXMLResourceTest, ChunksAndLinesDecodeToTheBytesOfTheJoinedText)
{
    for (const char* chunk : {"SGV", "sbG8\n", "  s\r\n", "IHd", "v", "cmxkIQ==\n"})
        addData(chunk);
    EXPECT_EQ(m_resource.getContentData(), QByteArray("Hello, world!"));
}

TEST_F(EvernoteXMLResourceTest, SkipsEveryCharacterOutsideTheAlphabet)
{
    m_resource.appendBase64Data(u8"S\u00E9G-V_s\tb*G\u65E58=");
    EXPECT_EQ(m_resource.getContentData(), QByteArray("Hello"));
}

TEST_F(EvernoteXMLResourceTest, EmptyDataIsNoContentForEveryOperation)
{
    const test::ScratchFolder folder;
    const QString target = folder.filePath("out");
    const auto expectNoContent = [this] {
        EXPECT_EQ(m_error.domain(), text("EvernoteXMLResourceErrorDomain"));
        EXPECT_EQ(m_error.code(), 1001);
        EXPECT_EQ(m_error.localizedDescription(), text("No content data for resource."));
        m_error = {};
    };
    EXPECT_FALSE(m_resource.getContentData(&m_error));
    expectNoContent();
    EXPECT_FALSE(m_resource.md5Hash(&m_error));
    expectNoContent();
    EXPECT_FALSE(m_resource.writeToURL(QUrl::fromLocalFile(target), &m_error));
    expectNoContent();
    EXPECT_FALSE(QFileInfo::exists(target));
}

TEST_F(EvernoteXMLResourceTest, DataOfForeignCharactersAloneIsAnEmptyFileAndNoError)
{
    addData(" \n\t ");
    EXPECT_EQ(m_resource.getContentData(&m_error), QByteArray());
    EXPECT_TRUE(m_error.isNull());
    EXPECT_EQ(m_resource.md5Hash(), text("d41d8cd98f00b204e9800998ecf8427e"));
}

TEST_F(EvernoteXMLResourceTest, RefusesWhatIsNotBase64)
{
    for (const char* broken : {"QUJ", "Q", "QQ==QQ==", "QUI=Q", "QUJD=", "Q===", "====", "=", "QQ======", "QUJDQ"}) {
        EvernoteXMLResource resource;
        resource.appendBase64Data(broken);
        EXPECT_FALSE(resource.getContentData(&m_error)) << broken;
        EXPECT_EQ(m_error.domain(), text("EvernoteXMLResourceErrorDomain"));
        EXPECT_EQ(m_error.code(), 1002);
        EXPECT_EQ(m_error.localizedDescription(), text("Invalid content data for resource."));
    }
}

TEST_F(EvernoteXMLResourceTest, AFailedDecodingIsNotRemembered)
{
    addData("QUJ");
    EXPECT_FALSE(m_resource.getContentData());
    EXPECT_FALSE(m_resource.getContentData(&m_error));
    EXPECT_EQ(m_error.code(), 1002);
    addData("D");
    EXPECT_EQ(m_resource.getContentData(), QByteArray("ABC"));
}

TEST_F(EvernoteXMLResourceTest, DecodesOnlyOnce)
{
    addData("QUJD");
    EXPECT_EQ(m_resource.getContentData(), QByteArray("ABC"));
    addData("RA==");
    EXPECT_EQ(m_resource.getContentData(), QByteArray("ABC"));
    EXPECT_EQ(m_resource.contentData(), QByteArray("ABC"));
}

TEST_F(EvernoteXMLResourceTest, HashIsLowerCaseMd5OfTheDecodedBytes)
{
    addData("YWJj");
    EXPECT_EQ(m_resource.md5Hash(), text("900150983cd24fb0d6963f7d28e17f72"));
    EXPECT_EQ(m_resource.md5Hash(), text("900150983cd24fb0d6963f7d28e17f72"));
}

TEST_F(EvernoteXMLResourceTest, TheMimeTypeDecidesTheItemType)
{
    EXPECT_EQ(typeOf("image/jpeg"), EvernoteXMLItemTypeImage);
    EXPECT_EQ(typeOf("application/pdf"), EvernoteXMLItemTypeDocument);
    EXPECT_EQ(typeOf("audio/x-m4a"), EvernoteXMLItemTypeSound);
    EXPECT_EQ(typeOf("audio/mpeg"), EvernoteXMLItemTypeSound);
    EXPECT_EQ(typeOf("video/mp4"), EvernoteXMLItemTypeMovie);
    EXPECT_EQ(typeOf("video/quicktime"), EvernoteXMLItemTypeMovie);
    EXPECT_EQ(typeOf("text/html"), EvernoteXMLItemTypeWebPage);
    EXPECT_EQ(typeOf("application/x-webarchive"), EvernoteXMLItemTypeWebPage);
    EXPECT_EQ(typeOf("application/octet-stream"), EvernoteXMLItemTypeDocument);
    EXPECT_EQ(typeOf("image/jpeg", "movie.mov"), EvernoteXMLItemTypeImage);
}

TEST_F(EvernoteXMLResourceTest, WithoutAMimeTypeTheExtensionDecides)
{
    EXPECT_EQ(typeOf("", "clip.mov"), EvernoteXMLItemTypeMovie);
    EXPECT_EQ(typeOf("", "song.mp3"), EvernoteXMLItemTypeSound);
    EXPECT_EQ(typeOf("", "photo.png"), EvernoteXMLItemTypeImage);
    EXPECT_EQ(typeOf("", "page.webloc"), EvernoteXMLItemTypeBookmark);
    EXPECT_EQ(typeOf("", "page.webarchive"), EvernoteXMLItemTypeWebPage);
    EXPECT_EQ(typeOf("", "README"), EvernoteXMLItemTypeDocument);
    EXPECT_EQ(typeOf("", ""), EvernoteXMLItemTypeDocument);
}

TEST_F(EvernoteXMLResourceTest, TheMimeTypeIsNotTrimmed)
{
    EXPECT_EQ(typeOf("image/jpeg\n"), EvernoteXMLItemTypeDocument);
    EXPECT_EQ(typeOf(" "), EvernoteXMLItemTypeDocument);
}

TEST_F(EvernoteXMLResourceTest, WritesTheDecodedBytesOverWhatIsThere)
{
    const test::ScratchFolder folder;
    const QString path = folder.write(text("out.bin"), "something longer");
    addData("YWJj");
    EXPECT_TRUE(m_resource.writeToURL(QUrl::fromLocalFile(path), &m_error));
    EXPECT_TRUE(m_error.isNull());
    EXPECT_EQ(folder.read(text("out.bin")), "abc");
}

TEST_F(EvernoteXMLResourceTest, AWriteThatCannotBeMadeReportsTheFileSystemsError)
{
    addData("YWJj");
    EXPECT_FALSE(m_resource.writeToURL(QUrl::fromLocalFile(text("/nowhere/at/all/x")), &m_error));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_FALSE(m_resource.writeToURL(QUrl::fromLocalFile(text("/nowhere/at/all/x"))));
}

} // namespace
