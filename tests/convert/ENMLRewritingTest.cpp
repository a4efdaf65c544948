// SPDX-License-Identifier: MIT
#include "convert/ConversionErrors.h"
#include "convert/ConversionFixture.h"
#include "formats/ChecklistBoxTexts.h"
#include "platform/core/Bundle.h"

namespace {

const QString head = QStringLiteral("***QUILLERYATTACHMENT ");
const QString tail = QStringLiteral(" QUILLERYATTACHMENT***");

class ENMLRewritingTest : public ConversionTest {
protected:
    void SetUp() override
    {
        ConversionTest::SetUp();
        m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(m_folder.path()));
    }
    void TearDown() override
    {
        platform::Bundle::main().setResourceDirectory({});
        ConversionTest::TearDown();
    }

    // A template that holds nothing but the two places.
    void usePlainTemplate()
    {
        static_cast<void>(m_templates.write(text("Template.html"), "<!-- QUILLERY TITLE -->|<!-- QUILLERY BODY -->"));
        platform::Bundle::main().setResourceDirectory(m_templates.path());
    }

    QString rewritten(const QByteArray& enml)
    {
        return m_item->XHTMLStringFromNoteElement(elementFromBody(enml), &m_error).value_or(QStringLiteral("(none)"));
    }
    QString page(const QByteArray& enml)
    {
        usePlainTemplate();
        return m_item->noteXHTMLStringFromNoteElement(elementFromBody(enml), &m_error).value_or(QStringLiteral("(none)"));
    }
    // The page's body alone.
    QString body(const QByteArray& enml) { return page(enml).section(u'|', 1); }

    void expectMalformedTag(const char* description)
    {
        EXPECT_EQ(m_error.domain(), text("EvernoteXMLItemErrorDomain"));
        EXPECT_EQ(m_error.code(), 1001);
        EXPECT_EQ(m_error.localizedDescription(), text(description));
    }

    test::ScratchFolder m_templates;
};

TEST_F(ENMLRewritingTest, ABodyWithoutItsOwnTagsOnlyLosesTheBareNoteTags)
{
    EXPECT_EQ(page("<en-note><div>a &amp; b<br/></div></en-note>"), text("Title|<div>a &amp; b<br></br></div>"));
}

TEST_F(ENMLRewritingTest, AStartTagWithAttributesStays)
{
    EXPECT_EQ(body("<en-note style=\"color: red;\">x</en-note>"), text("<en-note style=\"color: red;\">x"));
}

TEST_F(ENMLRewritingTest, NestedBareNoteTagsGoToo)
{
    EXPECT_EQ(body("<en-note>a<en-note>b</en-note>c</en-note>"), text("abc"));
}

TEST_F(ENMLRewritingTest, AnImageBecomesAnImgElementBesideItsFile)
{
    const QByteArray hash = addResource("picture", "image/png", "photo.png");
    EXPECT_EQ(rewritten("<en-note>" + media(hash, "width=\"200\"") + "</en-note>"),
              text("<img width=\"200\" src=\"photo.png\"></img>"));
    EXPECT_EQ(m_folder.read(text("photo.png")), "picture");
}

TEST_F(ENMLRewritingTest, AnImageCarriesWidthAndHeightInThatOrderAndNothingElse)
{
    const QByteArray hash = addResource("picture", "image/png", "photo.png");
    EXPECT_EQ(rewritten("<en-note>" + media(hash, "style=\"x\" height=\"30px\" alt=\"a\" width=\"20%\"") + "</en-note>"),
              text("<img width=\"20%\" height=\"30px\" src=\"photo.png\"></img>"));
}

TEST_F(ENMLRewritingTest, AnotherAttachmentBecomesAMarkerWithTwoBlanksOnEachSideOfItsName)
{
    const QByteArray hash = addResource("%PDF", "application/pdf", "doc.pdf");
    EXPECT_EQ(rewritten("<en-note>a" + media(hash) + "b</en-note>"),
              text("a***QUILLERYATTACHMENT  doc.pdf  QUILLERYATTACHMENT***b"));
    EXPECT_EQ(m_folder.read(text("doc.pdf")), "%PDF");
}

TEST_F(ENMLRewritingTest, AFileNameIsEscapedForThePage)
{
    const QByteArray pdf = addResource("%PDF", "application/pdf", "Q&A <1>.pdf");
    const QByteArray image = addResource("picture", "image/png", "A&B \"x\".png");
    EXPECT_EQ(rewritten("<en-note>" + media(pdf) + media(image) + "</en-note>"),
              head + text(" Q&amp;A &lt;1&gt;.pdf ") + tail + text("<img src=\"A&amp;B &quot;x&quot;.png\"></img>"));
    EXPECT_TRUE(m_folder.tree().contains(text("Q&A <1>.pdf")));
}

TEST_F(ENMLRewritingTest, TheSameHashTwiceGivesTwoFilesUnderTwoNames)
{
    const QByteArray hash = addResource("picture", "image/png", "photo.png");
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + media(hash) + "</en-note>"),
              text("<img src=\"photo.png\"></img><img src=\"photo 1.png\"></img>"));
    EXPECT_EQ(m_folder.read(text("photo 1.png")), "picture");
}

TEST_F(ENMLRewritingTest, TwoResourcesWithTheSameNameKeepTheirBytes)
{
    const QByteArray one = addResource("one", "application/pdf", "a.pdf");
    const QByteArray two = addResource("two", "application/pdf", "a.pdf");
    rewritten("<en-note>" + media(one) + media(two) + "</en-note>");
    EXPECT_EQ(m_folder.read(text("a.pdf")), "one");
    EXPECT_EQ(m_folder.read(text("a 1.pdf")), "two");
}

TEST_F(ENMLRewritingTest, AResourceWithoutANameIsWrittenAsItsIdentifier)
{
    const QByteArray hash = addResource("picture", "image/png");
    const QString name = m_item->resources().front()->identifier() + text(".png");
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), text("<img src=\"%1\"></img>").arg(name));
    EXPECT_EQ(m_folder.tree(), QStringList(name));
}

TEST_F(ENMLRewritingTest, AResourceWithoutANameOfAnUnknownTypeHasNoExtension)
{
    const QByteArray hash = addResource("bytes", "x-nobody/knows-this");
    const QString name = m_item->resources().front()->identifier();
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), head + u' ' + name + u' ' + tail);
}

TEST_F(ENMLRewritingTest, TheTagsTypeWinsOverTheResources)
{
    const QByteArray hash = addResource("bytes", "application/pdf");
    const QString identifier = m_item->resources().front()->identifier();
    EXPECT_EQ(rewritten("<en-note>" + media(hash, "type=\"image/jpeg\"") + "</en-note>"),
              text("<img src=\"%1.jpeg\"></img>").arg(identifier));
    EXPECT_EQ(rewritten("<en-note>" + media(hash, "type=\"application/pdf\"") + "</en-note>"),
              head + u' ' + identifier + text(".pdf ") + tail);
}

TEST_F(ENMLRewritingTest, WithoutATypeTheResourcesOwnDecides)
{
    const QByteArray hash = addResource("bytes", "image/gif", "a.gif");
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), text("<img src=\"a.gif\"></img>"));
}

TEST_F(ENMLRewritingTest, AHashThatNoResourceHasBecomesAText)
{
    addResource("bytes", "image/gif", "a.gif");
    EXPECT_EQ(rewritten("<en-note>" + media("0123") + media("", "type=\"image/png\"") + "<en-media type=\"a/b\"/></en-note>"),
              text("[Missing Attachment][Missing Attachment][Missing Attachment]"));
    EXPECT_TRUE(m_folder.tree().isEmpty());
    EXPECT_TRUE(m_error.isNull());
}

TEST_F(ENMLRewritingTest, HashesAreComparedExactly)
{
    const QByteArray hash = addResource("abcdef", "image/gif", "a.gif");
    EXPECT_EQ(rewritten("<en-note>" + media(hash.toUpper()) + "</en-note>"), text("[Missing Attachment]"));
}

TEST_F(ENMLRewritingTest, TheFirstResourceWithTheHashIsUsed)
{
    const QByteArray hash = addResource("same", "application/pdf", "first.pdf");
    addResource("same", "application/pdf", "second.pdf");
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), head + text(" first.pdf ") + tail);
}

TEST_F(ENMLRewritingTest, AResourceWithoutAHashIsLoggedAndPassedOver)
{
    addResource("", "image/png", "broken.png");
    const QByteArray hash = addResource("good", "image/png", "good.png");
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), text("<img src=\"good.png\"></img>"));
    ASSERT_EQ(m_systemLog.size(), 1);
    EXPECT_TRUE(m_systemLog[0].startsWith(text("Couldn't get hash: ")));
    EXPECT_TRUE(m_systemLog[0].contains(text("No content data for resource.")));
}

TEST_F(ENMLRewritingTest, AMediaTagWithoutAttributesIsNoMediaTag)
{
    EXPECT_EQ(rewritten("<en-note><en-media/></en-note>"), text("<en-media></en-media>"));
}

TEST_F(ENMLRewritingTest, AReplacementIsNeverSearchedAgain)
{
    const QByteArray hash = addResource("x", "application/pdf", "<en-media hash=\"0\">.pdf");
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), head + text(" &lt;en-media hash=&quot;0&quot;&gt;.pdf ") + tail);
}

TEST_F(ENMLRewritingTest, AMediaTagWithoutAnEndIsAnError)
{
    // A comment is the only place where a serialised body holds an opener alone.
    EXPECT_EQ(rewritten("<en-note><!-- <en-media x --></en-note>"), text("(none)"));
    expectMalformedTag("Invalid media tag.");
}

TEST_F(ENMLRewritingTest, ACutOutTagThatIsNotWellFormedGivesTheParsersError)
{
    EXPECT_EQ(rewritten("<en-note><!-- <en-media a=b /> --></en-note>"), text("(none)"));
    EXPECT_EQ(m_error.domain(), text("NSXMLParserErrorDomain"));
}

TEST_F(ENMLRewritingTest, AnEndBeforeItsBeginningRaises)
{
    const auto element = elementFromBody("<en-note><!-- </en-media> --><en-media hash=\"0\"/></en-note>");
    EXPECT_THROW(static_cast<void>(m_item->XHTMLStringFromNoteElement(element)), std::out_of_range);
}

TEST_F(ENMLRewritingTest, AnEndRightBeforeItsBeginningLeavesNothingThatCouldBeRead)
{
    EXPECT_EQ(rewritten("<en-note><en-media/><en-media hash=\"0\"/></en-note>"), text("(none)"));
    EXPECT_EQ(m_error.domain(), text("NSXMLParserErrorDomain"));
    const auto apart = elementFromBody("<en-note><en-media/> <en-media hash=\"0\"/></en-note>");
    EXPECT_THROW(static_cast<void>(m_item->XHTMLStringFromNoteElement(apart)), std::out_of_range);
}

TEST_F(ENMLRewritingTest, AWriteThatFailsEndsTheRewriting)
{
    const QByteArray hash = addResource("x", "application/pdf", "a.pdf");
    m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(text("/nowhere/at/all")));
    EXPECT_EQ(rewritten("<en-note>" + media(hash) + "</en-note>"), text("(none)"));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_FALSE(m_item->XHTMLStringFromNoteElement(elementFromBody("<en-note>" + media(hash) + "</en-note>")));
}

TEST_F(ENMLRewritingTest, NothingIsWrittenOutsideTheFolder)
{
    const test::ScratchFolder outer;
    QDir(outer.path()).mkdir(text("inner"));
    for (const char* name : {"../x", "../../x", "/etc/vupuge-test", "a/b", "nul\0name"}) {
        newItem();
        m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(outer.filePath("inner")));
        const auto resource = std::make_shared<EvernoteXMLResource>();
        resource->appendBase64Data("eA==");
        resource->setMime(text("application/pdf"));
        resource->attributes().setFilename(name[0] == 'n' ? QString::fromUtf8(name, 8) : text(name));
        m_item->addResource(resource);
        EXPECT_EQ(rewritten("<en-note>" + media(resource->md5Hash()->toUtf8()) + "</en-note>"), text("(none)")) << name;
        EXPECT_FALSE(m_error.isNull()) << name;
        EXPECT_EQ(outer.tree(), QStringList(text("inner/"))) << name;
    }
}

TEST_F(ENMLRewritingTest, ANameOfDotsIsTakenByTheFolderItselfAndBecomesAnother)
{
    const QByteArray one = addResource("one", "application/pdf", ".");
    const QByteArray two = addResource("two", "application/pdf", "..");
    rewritten("<en-note>" + media(one) + media(two) + "</en-note>");
    EXPECT_EQ(m_folder.tree(), QStringList({text("- 1"), text("-. 1")}));
}

TEST_F(ENMLRewritingTest, ANameThatTheFileSystemDoesNotTakeIsShortened)
{
    const QByteArray hash = addResource("x", "application/pdf", (std::string(300, 'n') + ".pdf").c_str());
    rewritten("<en-note>" + media(hash) + "</en-note>");
    EXPECT_EQ(m_folder.tree(), QStringList(QString(251, u'n') + text(".pdf")));
}

TEST_F(ENMLRewritingTest, CheckboxesBecomeBoxTexts)
{
    EXPECT_EQ(body("<en-note><en-todo checked=\"true\"/>a<en-todo checked=\"false\"/>b<en-todo/>c<en-todo checked=\"True\"/>d</en-note>"),
              checklist::checkedBoxText + u'a' + checklist::uncheckedBoxText + u'b' + checklist::uncheckedBoxText + u'c'
                  + checklist::uncheckedBoxText + u'd');
}

TEST_F(ENMLRewritingTest, TextWithinACheckboxTagGoesWithIt)
{
    EXPECT_EQ(body("<en-note><en-todo>inside</en-todo>outside</en-note>"), checklist::uncheckedBoxText + text("outside"));
}

TEST_F(ENMLRewritingTest, ACheckboxTagWithoutAnEndIsAnError)
{
    EXPECT_EQ(page("<en-note><!-- <en-todo --></en-note>"), text("(none)"));
    expectMalformedTag("Invalid todo tag.");
}

TEST_F(ENMLRewritingTest, ASelfClosedCheckboxRunsOnToALatersEnd)
{
    EXPECT_EQ(page("<en-note><!-- <en-todo/> --><en-todo></en-todo>x</en-note>"), text("(none)"));
    EXPECT_EQ(m_error.domain(), text("NSXMLParserErrorDomain"));
}

TEST_F(ENMLRewritingTest, EncryptedTextIsMasked)
{
    EXPECT_EQ(body("<en-note>a<en-crypt cipher=\"AES\" length=\"128\">RU5DMA==</en-crypt>b</en-note>"), text("a********b"));
}

TEST_F(ENMLRewritingTest, ACryptTagWithoutAnEndIsAnError)
{
    EXPECT_EQ(page("<en-note><!-- <en-crypt --></en-note>"), text("(none)"));
    expectMalformedTag("Invalid crypt tag.");
}

TEST_F(ENMLRewritingTest, ACryptTagThatIsNotWellFormedGivesTheParsersError)
{
    EXPECT_EQ(page("<en-note><!-- <en-crypt <> </en-crypt> --></en-note>"), text("(none)"));
    EXPECT_EQ(m_error.domain(), text("NSXMLParserErrorDomain"));
}

TEST_F(ENMLRewritingTest, AnEmptyBodyPassesThrough)
{
    EXPECT_EQ(page("<en-note/>"), text("Title|"));
}

TEST_F(ENMLRewritingTest, TheTitleIsInsertedAsItStands)
{
    m_item->setTitle(text("a < b & c"));
    EXPECT_EQ(page("<en-note>x</en-note>"), text("a < b & c|x"));
}

TEST_F(ENMLRewritingTest, AFailedMediaPassLeavesItsError)
{
    EXPECT_EQ(page("<en-note><!-- <en-media x --></en-note>"), text("(none)"));
    expectMalformedTag("Invalid media tag.");
}

TEST_F(ENMLRewritingTest, AnUnreadableTemplateIsAReadError)
{
    static_cast<void>(m_templates.write(text("Template.html"), "\xFF\xFE bytes that are no text"));
    platform::Bundle::main().setResourceDirectory(m_templates.path());
    EXPECT_FALSE(m_item->noteXHTMLStringFromNoteElement(elementFromBody("<en-note/>"), &m_error));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_FALSE(m_item->noteXHTMLStringFromNoteElement(elementFromBody("<en-note/>")));
}

TEST_F(ENMLRewritingTest, TheOwnTemplateHoldsTitleAndBodyOnce)
{
    m_item->setTitle(text("My Title"));
    const QString page = m_item->noteXHTMLStringFromNoteElement(elementFromBody("<en-note>My Body</en-note>")).value_or(QString());
    EXPECT_EQ(page.count(text("My Title")), 1);
    EXPECT_EQ(page.count(text("My Body")), 1);
    EXPECT_FALSE(page.contains(text("QUILLERY")));
}

TEST_F(ENMLRewritingTest, ManyTagsOfOneHashGetFilesOfTheirOwn)
{
    const QByteArray hash = addResource("x", "application/pdf", "a.pdf");
    rewritten("<en-note>" + media(hash).repeated(3000) + "</en-note>");
    EXPECT_EQ(m_folder.tree().size(), 3000);
    EXPECT_TRUE(m_folder.tree().contains(text("a 2999.pdf")));
}

TEST_F(ENMLRewritingTest, NamesThatAreChangedForTheFileSystemStayApart)
{
    QByteArray enml;
    for (const char* bytes : {"one", "two", "three", "four"})
        enml += media(addResource(bytes, "image/png", "Shot 10:30~.png"));
    rewritten("<en-note>" + enml + "</en-note>");
    EXPECT_EQ(m_folder.tree().size(), 4);
}

TEST_F(ENMLRewritingTest, AMissingTemplateIsAReadError)
{
    QDir(m_templates.path()).mkdir(text("Template.html"));
    platform::Bundle::main().setResourceDirectory(m_templates.path());
    EXPECT_FALSE(m_item->noteXHTMLStringFromNoteElement(elementFromBody("<en-note/>"), &m_error));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
}

TEST_F(ENMLRewritingTest, AThousandAttachmentsAreAllWritten)
{
    QByteArray enml = "<en-note>";
    for (int number = 0; number < 1000; ++number)
        enml += media(addResource(QByteArray::number(number), "application/pdf", qPrintable(QString::number(number))));
    EXPECT_EQ(rewritten(enml + "</en-note>").count(head), 1000);
    EXPECT_EQ(m_folder.tree().size(), 1000);
}

} // namespace
