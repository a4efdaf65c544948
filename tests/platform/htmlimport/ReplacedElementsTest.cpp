// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"
#include "support/ScratchFolder.h"

namespace {

using test::shown;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

const QByteArray pixel = QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADU"
                                                "lEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==");

class ImageTest : public testing::Test {
protected:
    platform::AttributedString page(const QByteArray& body) const
    {
        platform::HtmlImportOptions options = test::htmlOptions();
        options.baseDirectory = m_scratch.filePath("base");
        return test::import("<html><body>" + body + "</body></html>", options);
    }
    // The attachment of a page that holds one image.
    std::shared_ptr<platform::TextAttachment> image(const QByteArray& attributes) const
    {
        const auto text = page("<img " + attributes + "/>");
        EXPECT_EQ(shown(text), s("@\n"));
        return text.isEmpty() ? nullptr : text.attributesAt(0).attachment;
    }
    QString nameOf(const QByteArray& source) const
    {
        const auto attachment = image("src=\"" + source + "\"");
        return attachment ? attachment->fileWrapper()->preferredFilename() : QString();
    }
    void addFile(const char* name) const { m_scratch.write(s("base/") + s(name), pixel); }

    test::ScratchFolder m_scratch;
};

TEST_F(ImageTest, AFileBecomesAnAttachment)
{
    addFile("a.png");
    const auto attachment = image("src='a.png'");
    ASSERT_TRUE(attachment);
    EXPECT_EQ(attachment->fileWrapper()->preferredFilename(), s("a.png"));
    EXPECT_EQ(attachment->fileWrapper()->contents(), pixel);
    EXPECT_EQ(attachment->size(), platform::TextAttachment::Size{});
}

TEST_F(ImageTest, NamesAreTriedAsTheyStandAndThenDecoded)
{
    for (const char* name : {"a b.png", "a#b.png", "a?b=c.png", "100%.png", "a%20b.png", "a:b.png",
                             "\u00FC.png", "a+b.png", " x .png"}) {
        addFile(name);
        EXPECT_EQ(nameOf(s(name).toHtmlEscaped().toUtf8()), s(name));
    }
    EXPECT_EQ(nameOf("a%23b.png"), s("a#b.png"));
    EXPECT_EQ(nameOf("%C3%BC.png"), s("\u00FC.png"));
    EXPECT_EQ(nameOf("a%3Ab.png"), s("a:b.png"));
    addFile("plain.png");
    EXPECT_EQ(nameOf("plain.png?version=3#part"), s("plain.png"));
    EXPECT_EQ(nameOf("./plain.png"), s("plain.png"));
    EXPECT_EQ(nameOf("  plain.png\n"), s("plain.png"));
    addFile("sub/inner.png");
    EXPECT_EQ(nameOf("sub/inner.png"), s("inner.png"));
    EXPECT_EQ(nameOf("file://" + m_scratch.filePath("base/plain.png").toUtf8()), s("plain.png"));
}

TEST_F(ImageTest, NothingOutsideTheBaseDirectoryIsRead)
{
    addFile("a.png");
    m_scratch.write(s("secret.png"), pixel);
    m_scratch.write(s("base2/secret.png"), pixel);
    ASSERT_TRUE(QFile::link(m_scratch.filePath("secret.png"), m_scratch.filePath("base/link.png")));
    const QByteArray outside = m_scratch.filePath("secret.png").toUtf8();
    for (const QByteArray& source :
         {QByteArray("../secret.png"), QByteArray("%2e%2e/secret.png"),
          QByteArray("..%2Fsecret.png"), QByteArray("../base2/secret.png"), QByteArray("link.png"),
          outside, "file://" + outside, QByteArray("/etc/passwd"), QByteArray(".."),
          QByteArray(".")}) {
        const auto text = page("<img src=\"" + source + "\"/>");
        EXPECT_FALSE(text.string().contains(QChar(0xFFFC))) << source.constData();
    }
}

TEST_F(ImageTest, WithoutABaseDirectoryThereAreNoFiles)
{
    EXPECT_EQ(shown(test::import("<p><img src='/etc/passwd'/></p>")), s("[passwd]\n"));
}

TEST_F(ImageTest, MissingImagesAreNotLostSilently)
{
    EXPECT_EQ(shown(page("<img src='gone%20a.png'/>")), s("[gone a.png]\n"));
    EXPECT_EQ(shown(page("<img src='gone.png' alt='A  picture'/>")), s("A picture\n"));
    EXPECT_EQ(shown(page("<img src=''/>")), s(""));
    EXPECT_EQ(shown(page("<img alt='only words'/>")), s("only words\n"));
}

TEST_F(ImageTest, Sizes)
{
    using Size = platform::TextAttachment::Size;
    addFile("a.png");
    EXPECT_EQ(image("src='a.png' width='50' height='40.5px'")->size(), (Size{50, 40.5}));
    EXPECT_EQ(image("src='a.png' width='50px'")->size(), (Size{50, 0}));
    EXPECT_EQ(image("src='a.png' width='50%' height='7'")->size(), (Size{0, 7}));
    EXPECT_EQ(image("src='a.png' width='9' style='width:30px;height:2em'")->size(), (Size{30, 32}));
    EXPECT_EQ(image("src='a.png' style='height:1in;width:auto'")->size(), (Size{0, 96}));
    EXPECT_EQ(image("src='a.png' width='-5' height='x'")->size(), Size{});
}

TEST_F(ImageTest, ImagesStandInTheTextAndInLinks)
{
    addFile("a.png");
    const auto text = page("<p>a <img src='a.png'/> b <a href='x:y'><img src='a.png'/></a></p>");
    EXPECT_EQ(shown(text), s("a @ b @\n"));
    EXPECT_EQ(text.attributesAt(6).link, s("x:y"));
    EXPECT_NE(text.attributesAt(2).attachment, text.attributesAt(6).attachment);
}

TEST_F(ImageTest, DataUrlsAreFilesOfTheirType)
{
    const auto png = image("src='data:image/png;base64," + pixel.toBase64() + "'");
    ASSERT_TRUE(png);
    EXPECT_EQ(png->fileWrapper()->preferredFilename(), s("image.png"));
    EXPECT_EQ(png->fileWrapper()->contents(), pixel);
    const auto svg = image("src='data:image/svg+xml;utf8,%3Csvg/%3E'");
    ASSERT_TRUE(svg);
    EXPECT_EQ(svg->fileWrapper()->preferredFilename(), s("image.svg"));
    EXPECT_EQ(svg->fileWrapper()->contents(), QByteArray("<svg/>"));
    EXPECT_EQ(nameOf("data:image/jpeg;base64,AAAA"), s("image.jpg"));
    EXPECT_EQ(nameOf("DATA:IMAGE/GIF;BASE64,AAAA"), s("image.gif"));
    EXPECT_EQ(nameOf("data:;base64,AAAA"), s("attachment"));
    EXPECT_EQ(shown(page("<img src='data:image/png;base64,' alt='none'/>")), s("none\n"));
    EXPECT_EQ(shown(page("<img src='data:image/png'/>")), s("[data]\n"));
}

TEST_F(ImageTest, RemoteImagesAreLinks)
{
    const auto named = page("<img src='https://example.com/a.png' alt='A picture'/>");
    EXPECT_EQ(shown(named), s("A picture\n"));
    EXPECT_EQ(named.attributesAt(0).link, s("https://example.com/a.png"));
    EXPECT_EQ(shown(page("<img src='http://example.com/a.png'/>")),
              s("http://example.com/a.png\n"));
    EXPECT_EQ(page("<img src='//example.com/a.png'/>").attributesAt(0).link,
              s("https://example.com/a.png"));
    EXPECT_EQ(page("<a href='x:y'><img src='http://e.com/a.png'/></a>").attributesAt(0).link,
              s("x:y"));
    EXPECT_EQ(shown(page("a<img src='http://e.com/count.gif' width='1' height='1'/>")), s("a\n"));
}

TEST_F(ImageTest, DrawingsInThePageAreFiles)
{
    const auto text =
        page("<p>a<svg width='20' height='10'><title>no</title><circle r='4'/></svg>b</p>");
    EXPECT_EQ(shown(text), s("a@b\n"));
    const auto attachment = text.attributesAt(1).attachment;
    EXPECT_EQ(attachment->fileWrapper()->preferredFilename(), s("image.svg"));
    EXPECT_TRUE(attachment->fileWrapper()->contents().contains("http://www.w3.org/2000/svg"));
    EXPECT_TRUE(attachment->fileWrapper()->contents().contains("<circle"));
    EXPECT_EQ(attachment->size(), (platform::TextAttachment::Size{20, 10}));
}

TEST_F(ImageTest, EmbeddedThingsBecomeLinksOrFiles)
{
    addFile("clip.mp4");
    EXPECT_EQ(shown(page("<iframe src='https://example.com/v' title='A video'>no</iframe>")),
              s("A video\n"));
    EXPECT_EQ(page("<iframe src='https://example.com/v'></iframe>").attributesAt(0).link,
              s("https://example.com/v"));
    EXPECT_EQ(shown(page("<video src='https://e.com/v.mp4'>no</video>")),
              s("https://e.com/v.mp4\n"));
    EXPECT_EQ(shown(page("<video><source src='clip.mp4'/>no</video>")), s("@\n"));
    EXPECT_EQ(shown(page("<object data='clip.mp4'>no</object>")), s("@\n"));
    EXPECT_EQ(shown(page("<object>instead</object>")), s("instead\n"));
    EXPECT_EQ(shown(page("<embed src='x.swf'/>")), s("x.swf\n"));
    EXPECT_EQ(shown(page("<audio src='https://e.com/a.mp3'></audio>")), s("https://e.com/a.mp3\n"));
}

TEST(ReplacedElementsTest, ARuleIsALineOfItsOwn)
{
    const QString rule(30, QChar(0x2500));
    EXPECT_EQ(shown("a<hr/>b"), s("a\n") + rule + s("\nb\n"));
    EXPECT_EQ(shown("<hr></hr><hr/>"), rule + s("\n") + rule + s("\n"));
    EXPECT_EQ(shown("<ul><li>a<hr/>b</li></ul>"), s(">\u2022>a\n") + rule + s("\nb\n"));
}

TEST(ReplacedElementsTest, FormControls)
{
    EXPECT_EQ(shown("<div><input type=\"checkbox\" checked=\"checked\"/> a</div><div><input "
                    "type=\"checkbox\"/>b</div>"),
              s("\u2611\uFE0E a\n\u2610 b\n"));
    EXPECT_EQ(shown("<input type=\"radio\"/>a <input type=\"radio\" checked=\"\"/> b"),
              s("\u25CB a \u25C9 b\n"));
    EXPECT_EQ(shown("<input value=\"typed\"/><input type=\"hidden\" value=\"no\"/><input "
                    "type=\"password\" value=\"no\"/>"),
              s("typed\n"));
    EXPECT_EQ(shown("<input type=\"submit\" value=\"Send\"/><button>Press</button>"),
              s("SendPress\n"));
    EXPECT_EQ(
        shown("a<select><option>b</option><option selected=\"selected\">c</option></select>d"),
        s("a\nb\nc\nd\n"));
    EXPECT_EQ(shown("<div><input type=\"checkbox\"/></div>"), s("\u2610 \n"));
}

} // namespace
