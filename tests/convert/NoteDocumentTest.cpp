// SPDX-License-Identifier: MIT
#include "convert/NoteDocument.h"

#include "convert/ConversionFixture.h"
#include "formats/QLChecklistTextAttachment.h"
#include "formats/QLNoteFile.h"
#include "platform/propertylist/PropertyList.h"

namespace {

namespace manifest = platform::manifest;
using manifest::Record;
using platform::AttributedString;

// Whole notes, from their body to what their note file says.
class NoteDocumentTest : public ConversionTest {
protected:
    std::shared_ptr<QLNoteFile> noteFor(const QByteArray& enml)
    {
        setBody(enml);
        const Record record = convert();
        if (!record)
            return nullptr;
        return QLNoteFile::noteFileWithFileURL(QUrl::fromLocalFile(record->value(manifest::absoluteFilenameKey).toString()));
    }
    AttributedString textFor(const QByteArray& enml)
    {
        const auto note = noteFor(enml);
        return note ? note->noteText() : AttributedString(text("(none)"));
    }
    static const platform::TextAttributes& attributesOf(const AttributedString& string, const char* word)
    {
        return string.attributesAt(string.string().indexOf(text(word)));
    }
};

TEST_F(NoteDocumentTest, ANoteWithoutAttachmentsIsItsLaidOutTextInTheDefaultFont)
{
    const AttributedString string = textFor("<en-note><div>one</div><div>two <b>three</b></div></en-note>");
    EXPECT_EQ(string.string(), text("one\ntwo three\n"));
    EXPECT_EQ(attributesOf(string, "one").font, platform::Font::userFont(12));
    EXPECT_TRUE(attributesOf(string, "three").font->bold);
}

TEST_F(NoteDocumentTest, TheBodyFontIsThePersonsChoice)
{
    EXPECT_EQ(NoteDocument::bodyFont(), platform::Font::userFont(12));
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("Georgia"));
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontSize"), 15);
    const AttributedString string = textFor("<en-note><div>one</div></en-note>");
    EXPECT_EQ(string.attributesAt(0).font->family, text("Georgia"));
    EXPECT_EQ(string.attributesAt(0).font->size, 15);
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("No Such Font At All"));
    EXPECT_EQ(NoteDocument::bodyFont(), platform::Font::userFont(12));
}

TEST_F(NoteDocumentTest, TwoAttachmentsStandWhereTheirMarkersStoodInOrder)
{
    const QByteArray one = addResource("one", "application/pdf", "a & b.pdf");
    const QByteArray two = addResource("two", "application/zip", "two  blanks.zip");
    const AttributedString string = textFor("<en-note><div>x" + media(one) + "y</div><div>" + media(two) + "z</div></en-note>");
    EXPECT_EQ(string.string(), text("x\uFFFCy\n\uFFFCz\n"));
    const auto first = string.attributesAt(1).attachment;
    const auto second = string.attributesAt(4).attachment;
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->fileWrapper()->preferredFilename(), text("a & b.pdf"));
    EXPECT_EQ(first->fileWrapper()->contents(), "one");
    EXPECT_EQ(second->fileWrapper()->preferredFilename(), text("two  blanks.zip"));
    EXPECT_EQ(second->fileWrapper()->contents(), "two");
}

TEST_F(NoteDocumentTest, AnImageIsAnAttachmentWithItsBytes)
{
    const QByteArray hash = addResource("picture", "image/png", "photo.png");
    const AttributedString string = textFor("<en-note><div>a" + media(hash, "width=\"20\" height=\"10\"") + "</div></en-note>");
    EXPECT_EQ(string.string(), text("a\uFFFC\n"));
    EXPECT_EQ(string.attributesAt(1).attachment->fileWrapper()->contents(), "picture");
    EXPECT_EQ(string.attributesAt(1).attachment->size(), (platform::TextAttachment::Size{20, 10}));
}

TEST_F(NoteDocumentTest, NamesThatAPageWouldChangeComeThroughAsTheyAre)
{
    for (const char* name : {"Q&A <1>.pdf", "100%.pdf", "a#b?c.pdf", "\"quoted\".pdf", "\u65e5\u672c.pdf", "&amp;.pdf", "x;y,z.pdf",
                             "a\uFFFCb.pdf", "\u200Fa\u2028b.pdf", "c\u0085d.pdf"}) {
        newItem("Names");
        const QByteArray pdf = addResource(name, "application/pdf", name);
        const QByteArray image = addResource(QByteArray("image ") + name, "image/png", (std::string("i") + name + ".png").c_str());
        const AttributedString string = textFor("<en-note><div>t" + media(pdf) + media(image) + "</div></en-note>");
        ASSERT_EQ(string.string(), text("t\uFFFC\uFFFC\n")) << name;
        EXPECT_EQ(string.attributesAt(1).attachment->fileWrapper()->contents(), QByteArray(name));
        EXPECT_EQ(string.attributesAt(1).attachment->fileWrapper()->preferredFilename(), text(name));
        EXPECT_EQ(string.attributesAt(2).attachment->fileWrapper()->contents(), QByteArray("image ") + name);
    }
}

TEST_F(NoteDocumentTest, WhiteSpaceRoundANameIsNoPartOfThePackagesFileButTheRightFileIsTaken)
{
    const QByteArray one = addResource("one", "image/png", "*.png\n      ");
    const QByteArray two = addResource("two", "image/png", "*.png");
    const QByteArray three = addResource("three", "application/pdf", " *.pdf\n");
    const AttributedString string = textFor("<en-note><div>t" + media(one) + media(two) + media(three) + "</div></en-note>");
    ASSERT_EQ(string.string(), text("t\uFFFC\uFFFC\uFFFC\n"));
    EXPECT_EQ(string.attributesAt(1).attachment->fileWrapper()->contents(), "one");
    EXPECT_EQ(string.attributesAt(2).attachment->fileWrapper()->contents(), "two");
    EXPECT_EQ(string.attributesAt(3).attachment->fileWrapper()->contents(), "three");
    EXPECT_EQ(string.attributesAt(1).attachment->fileWrapper()->preferredFilename(), text("*.png"));
    EXPECT_EQ(string.attributesAt(3).attachment->fileWrapper()->preferredFilename(), text("*.pdf"));
}

TEST_F(NoteDocumentTest, ATitleThatIsNoMarkupLeavesThePageReadable)
{
    newItem("a < b & c </title> <b>");
    EXPECT_EQ(textFor("<en-note><div>body</div></en-note>").string(), text("body\n"));
}

TEST_F(NoteDocumentTest, AMarkerThatNamesAMissingFileFailsTheNote)
{
    EXPECT_FALSE(noteFor("<en-note><div>***QUILLERYATTACHMENT missing.pdf QUILLERYATTACHMENT***</div></en-note>"));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_TRUE(m_folder.tree().isEmpty());
}

TEST_F(NoteDocumentTest, AMarkerInTheTextNeverReachesOutsideTheFolder)
{
    for (const char* name : {"/etc/passwd", "../../../../../../etc/passwd", "..", "."}) {
        newItem("Hostile");
        EXPECT_FALSE(noteFor("<en-note><div>***QUILLERYATTACHMENT " + QByteArray(name) + " QUILLERYATTACHMENT***</div></en-note>")) << name;
        EXPECT_FALSE(m_error.isNull()) << name;
    }
}

TEST_F(NoteDocumentTest, AMarkerWithoutAnEndRaises)
{
    AttributedString string(text("a ***QUILLERYATTACHMENT x"));
    EXPECT_THROW(static_cast<void>(NoteDocument::replaceAttachmentMarkers(string, m_folder.path())), std::out_of_range);
}

TEST_F(NoteDocumentTest, AFolderIsAttachedWhole)
{
    static_cast<void>(m_folder.write(text("package.rtfd/TXT.rtf"), "{\\rtf1}"));
    AttributedString string(text("***QUILLERYATTACHMENT package.rtfd QUILLERYATTACHMENT***"));
    ASSERT_TRUE(NoteDocument::replaceAttachmentMarkers(string, m_folder.path()));
    EXPECT_EQ(string.string(), text("\uFFFC"));
    EXPECT_TRUE(string.attributesAt(0).attachment->fileWrapper()->isDirectory());
}

TEST_F(NoteDocumentTest, APageThatCannotBeReadGivesAnEmptyNote)
{
    EXPECT_TRUE(NoteDocument::textOfPage(m_folder.filePath("missing.html")).isEmpty());
}

TEST_F(NoteDocumentTest, CheckboxesAtLineStartsBecomeLive)
{
    const auto note = noteFor("<en-note><div><en-todo checked=\"true\"/>done</div><div>text <en-todo/>not at the start</div>"
                              "<div><en-todo/>open</div></en-note>");
    ASSERT_TRUE(note);
    ASSERT_EQ(note->noteAttributes()->checklistItems()->size(), 2u);
    const auto box = std::dynamic_pointer_cast<QLChecklistTextAttachment>(note->noteText().attributesAt(0).attachment);
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isOn());
    EXPECT_TRUE(note->noteText().string().contains(text("text \u2610 not at the start")));
}

TEST_F(NoteDocumentTest, ACheckboxInACellStaysInItsCell)
{
    const AttributedString string = textFor("<en-note><table><tr><td>one</td><td><en-todo checked=\"true\"/>two</td></tr>"
                                            "<tr><td>three</td><td>four</td></tr></table></en-note>");
    const qsizetype two = string.string().indexOf(text("two"));
    ASSERT_GT(two, 0);
    EXPECT_TRUE(std::dynamic_pointer_cast<QLChecklistTextAttachment>(string.attributesAt(two - 1).attachment));
    for (const char* word : {"one", "two", "three", "four"}) {
        ASSERT_FALSE(attributesOf(string, word).paragraphStyle->textBlocks.empty()) << word;
        EXPECT_EQ(attributesOf(string, word).paragraphStyle->textBlocks.back()->table,
                  attributesOf(string, "one").paragraphStyle->textBlocks.back()->table) << word;
    }
    EXPECT_EQ(string.attributesAt(two - 1).paragraphStyle->textBlocks.back()->column, 1);
}

TEST_F(NoteDocumentTest, WhatStandsAloneInACellLeavesTheTableWhole)
{
    const QByteArray pdf = addResource("pdf", "application/pdf", "a.pdf");
    const QByteArray box = "<en-todo checked=\"true\"/>";
    const std::vector<std::pair<QByteArray, QByteArray>> contents{
        {media(pdf), "two"}, {box, "two"}, {"<en-todo/>", "two"}, {box, media(pdf)}, {media(pdf), box}, {box, box}};
    for (const auto& [one, two] : contents) {
        newItem();
        addResource("pdf", "application/pdf", "a.pdf");
        const AttributedString string = textFor("<en-note><table><tr><td>" + one + "</td><td>" + two + "</td></tr>"
                                                "<tr><td>" + two + "</td><td>" + one + "</td></tr></table><p>end</p></en-note>");
        const std::vector<std::pair<int, int>> cells{{0, 0}, {0, 1}, {1, 0}, {1, 1}};
        std::vector<std::pair<int, int>> found;
        for (qsizetype position = 0; position < string.length(); ++position) {
            const auto style = string.attributesAt(position).paragraphStyle;
            if (!style || style->textBlocks.empty())
                continue;
            EXPECT_EQ(style->textBlocks[0]->table, string.attributesAt(0).paragraphStyle->textBlocks[0]->table);
            const std::pair cell(style->textBlocks[0]->row, style->textBlocks[0]->column);
            if (found.empty() || found.back() != cell)
                found.push_back(cell);
        }
        EXPECT_EQ(found, cells) << one.constData() << two.constData();
    }
}

TEST_F(NoteDocumentTest, AnAttachmentAtTheBeginningOfAParagraphLeavesItsAlignment)
{
    const QByteArray pdf = addResource("pdf", "application/pdf", "a.pdf");
    const AttributedString string = textFor("<en-note><div style=\"text-align:center\">" + media(pdf) + " text</div></en-note>");
    EXPECT_EQ(string.attributesAt(0).paragraphStyle->alignment, platform::TextAlignment::Center);
}

TEST_F(NoteDocumentTest, AnAttachmentInPlaceOfItsMarkerHasNoOtherAttributes)
{
    static_cast<void>(m_folder.write(text("a.pdf"), "pdf"));
    platform::TextAttributes attributes;
    attributes.font = platform::Font::userFont(12);
    attributes.paragraphStyle = std::make_shared<platform::ParagraphStyle>();
    AttributedString string(text("x***QUILLERYATTACHMENT a.pdf QUILLERYATTACHMENT***y"), attributes);
    ASSERT_TRUE(NoteDocument::replaceAttachmentMarkers(string, m_folder.path()));
    ASSERT_EQ(string.string(), text("x\uFFFCy"));
    platform::TextAttributes expected;
    expected.attachment = string.attributesAt(1).attachment;
    EXPECT_EQ(string.attributesAt(1), expected);
    EXPECT_EQ(string.attributesAt(2), attributes);
}

TEST_F(NoteDocumentTest, AnAttachmentThatTheNoteDoesNotShowIsWarnedOf)
{
    const QByteArray pdf = addResource("pdf", "application/pdf", "hidden.pdf");
    const QByteArray image = addResource("image", "image/png", "shown.png");
    textFor("<en-note><div style=\"display:none\">" + media(pdf) + "</div><div>x" + media(image) + "</div></en-note>");
    ASSERT_EQ(m_item->warnings().size(), 1);
    EXPECT_TRUE(m_item->warnings()[0].contains(text("hidden.pdf")));
}

TEST_F(NoteDocumentTest, NamesThatLookLikeMarkupOrAddressesKeepTheirFiles)
{
    for (const char* name : {"a\rb.pdf", "data:a.png", "data:x,y.png", "http://x.png", "Shot 10:30:0.png"}) {
        newItem("Odd names");
        const bool isPath = QByteArray(name).contains('/');
        const QByteArray hash = addResource(name, QByteArray(name).endsWith("png") ? "image/png" : "application/pdf", name);
        const AttributedString string = textFor("<en-note><div>t" + media(hash) + "</div></en-note>");
        if (isPath) {
            EXPECT_FALSE(m_error.isNull()) << name;
            continue;
        }
        ASSERT_EQ(string.string(), text("t\uFFFC\n")) << name;
        EXPECT_EQ(string.attributesAt(1).attachment->fileWrapper()->contents(), QByteArray(name));
    }
}

TEST_F(NoteDocumentTest, AFractionalFontSizeIsTruncated)
{
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("Georgia"));
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontSize"), 15.7);
    EXPECT_EQ(textFor("<en-note><div>one</div></en-note>").attributesAt(0).font->size, 15);
}

TEST_F(NoteDocumentTest, WithoutAFontSettingTheBodyFontIsTheStandardFontAtTwelvePoints)
{
    EXPECT_EQ(NoteDocument::bodyFont(), platform::Font::userFont(12));
}

TEST_F(NoteDocumentTest, QuillerysOwnSettingsChooseTheFont)
{
    const QString directory = qEnvironmentVariable("XDG_CONFIG_HOME");
    QDir().mkpath(directory);
    const QString path = directory + text("/com.brightmoor.Quillery3.plist");
    ASSERT_TRUE(platform::writePropertyList(path, QVariantMap{{text("DefaultNoteFontName"), text("Verdana")},
                                                              {text("DefaultNoteFontSize"), 18}},
                                            platform::PropertyListFormat::Binary));
    EXPECT_EQ(NoteDocument::bodyFont().family, text("Verdana"));
    EXPECT_EQ(NoteDocument::bodyFont().size, 18);
    ASSERT_TRUE(QFile::remove(path));
}

TEST_F(NoteDocumentTest, APageThatCannotBeWrittenFailsTheNote)
{
    m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(m_folder.filePath("gone")));
    EXPECT_FALSE(m_item->createNoteForElement(elementFromBody("<en-note>x</en-note>"), &m_error));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
}

TEST_F(NoteDocumentTest, ANoteFileThatCannotBeWrittenFailsTheNoteWithTheWriteError)
{
    // Outside an imported folder notes go to "Notes", which is not there.
    m_group = manifest::makeRecord();
    setBody("<en-note>x</en-note>");
    EXPECT_FALSE(convert());
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_TRUE(m_folder.tree().isEmpty());
}

TEST_F(NoteDocumentTest, RichTextArrives)
{
    const AttributedString string = textFor(
        "<en-note><div><i>slanted</i> <u>under</u> <s>struck</s> <span style=\"color:#ff0000\">red</span> "
        "<span style=\"background-color:#ffff00\">marked</span> <span style=\"font-size:24px\">large</span> "
        "<a href=\"https://example.org/?a=1&amp;b=2\">link</a></div>"
        "<ul><li>first</li><li>second</li></ul><ol><li>third</li></ol>"
        "<table><tr><td>cell one</td><td>cell two</td></tr></table></en-note>");
    EXPECT_TRUE(attributesOf(string, "slanted").font->italic);
    EXPECT_EQ(attributesOf(string, "under").underline, platform::LineStyle::Single);
    EXPECT_EQ(attributesOf(string, "struck").strikethrough, platform::LineStyle::Single);
    EXPECT_EQ(attributesOf(string, "red").foregroundColor->red, 1);
    EXPECT_EQ(attributesOf(string, "marked").backgroundColor->blue, 0);
    EXPECT_EQ(attributesOf(string, "large").font->size, 24);
    EXPECT_EQ(attributesOf(string, "link").link, text("https://example.org/?a=1&b=2"));
    EXPECT_TRUE(string.string().contains(text("\t\u2022\tfirst\n")));
    EXPECT_TRUE(string.string().contains(text("1.\tthird\n")));
    EXPECT_TRUE(string.string().contains(text("cell one\ncell two\n")));
    ASSERT_FALSE(attributesOf(string, "cell two").paragraphStyle->textBlocks.empty());
    EXPECT_EQ(attributesOf(string, "cell two").paragraphStyle->textBlocks.back()->column, 1);
}

} // namespace
