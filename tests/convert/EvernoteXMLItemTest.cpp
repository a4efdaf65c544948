// SPDX-License-Identifier: MIT
#include "convert/ConversionErrors.h"
#include "convert/ConversionFixture.h"
#include "formats/QLNoteFile.h"
#include "platform/files/ResourceValues.h"

#include "support/UnremovableFolder.h"

namespace {

namespace manifest = platform::manifest;
using manifest::Record;

const QByteArray plainBody = "<?xml version=\"1.0\"?><!DOCTYPE en-note SYSTEM \"http://xml.evernote.com/pub/enml2.dtd\">"
                             "<en-note><div>Hello</div></en-note>";

class EvernoteXMLItemTest : public ConversionTest {
protected:
    // The text of the note file in the record.
    static QString noteText(const Record& record)
    {
        const auto note = QLNoteFile::noteFileWithFileURL(
            QUrl::fromLocalFile(record->value(manifest::absoluteFilenameKey).toString()));
        return note ? note->noteText().string() : QStringLiteral("(no note)");
    }

    static QString filename(const Record& record) { return record->value(manifest::filenameKey).toString(); }
    static int itemType(const Record& record) { return record->value(manifest::itemTypeKey).toInt(); }

    void expectNoScratchFolder() { EXPECT_FALSE(QFileInfo::exists(m_folder.filePath(m_item->identifier()))); }

    // A note that is one attachment and nothing else.
    void makeSingleAttachment(const char* mime, const char* filename)
    {
        setBody("<en-note>" + media(addResource("bytes", mime, filename)) + "</en-note>");
    }
};

TEST_F(EvernoteXMLItemTest, AnOrdinaryNoteBecomesANoteFile)
{
    setBody(plainBody);
    const Record record = convert();
    ASSERT_TRUE(record);
    EXPECT_TRUE(m_error.isNull());
    EXPECT_EQ(itemType(record), 1);
    EXPECT_EQ(filename(record), text("Title.qlnote"));
    EXPECT_EQ(record->value(manifest::absoluteFilenameKey).toString(), m_folder.filePath("Title.qlnote"));
    EXPECT_EQ(record->value(manifest::nameKey).toString(), text("Title"));
    EXPECT_EQ(record->value(manifest::extensionHiddenKey), QVariant(true));
    EXPECT_EQ(noteText(record), text("Hello\n"));
    expectNoScratchFolder();
}

TEST_F(EvernoteXMLItemTest, ARecordOfABareNoteHasNoOtherKeys)
{
    setBody(plainBody);
    EXPECT_EQ(convert()->keys(),
              QStringList({text("absoluteFilename"), text("com.brightmoor.Quillery.EntityName"), text("extensionHidden"),
                           text("filename"), text("identifier"), text("itemType"), text("name")}));
}

TEST_F(EvernoteXMLItemTest, TheRecordCarriesIdentifierDatesSourceAndTags)
{
    const QDateTime created(QDate(2013, 4, 12), QTime(9, 30), Qt::UTC);
    const QDateTime updated(QDate(2014, 1, 2), QTime(3, 4, 5), Qt::UTC);
    setBody(plainBody);
    m_item->setCreated(created);
    m_item->setUpdated(updated);
    m_item->noteAttributes().setSourceURL(text("http://example.org/"));
    for (const char* tag : {"a", "", "b"})
        m_item->addTag(text(tag));
    const Record record = convert();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->value(manifest::entityNameKey).toString(), text("Item"));
    EXPECT_EQ(record->value(manifest::identifierKey).toString(), m_item->identifier());
    EXPECT_EQ(record->value(manifest::dateCreatedKey).toDateTime(), created);
    EXPECT_EQ(record->value(manifest::dateModifiedKey).toDateTime(), updated);
    EXPECT_EQ(record->value(manifest::commentsKey).toString(), text("http://example.org/"));
    EXPECT_EQ(record->value(manifest::tagsStringKey).toString(), text("a,,b"));
}

TEST_F(EvernoteXMLItemTest, TheFileCarriesDatesTagsAndAHiddenExtension)
{
    const QDateTime created(QDate(2013, 4, 12), QTime(9, 30), Qt::UTC);
    const QDateTime updated(QDate(2014, 1, 2), QTime(3, 4, 5), Qt::UTC);
    setBody(plainBody);
    m_item->setCreated(created);
    m_item->setUpdated(updated);
    m_item->addTag(text("red"));
    const Record record = convert();
    const auto values = platform::resourceValues(record->value(manifest::absoluteFilenameKey).toString());
    ASSERT_TRUE(values);
    EXPECT_EQ(values->creationDate, created);
    EXPECT_EQ(values->contentModificationDate, updated);
    EXPECT_EQ(values->hasHiddenExtension, true);
    EXPECT_EQ(values->tagNames, QStringList(text("red")));
}

TEST_F(EvernoteXMLItemTest, ASingleMediaElementBecomesTheAttachmentsFile)
{
    newItem("Tax 2013");
    makeSingleAttachment("application/pdf", "Scan.pdf");
    const Record record = convert();
    ASSERT_TRUE(record);
    EXPECT_EQ(filename(record), text("Tax 2013.pdf"));
    EXPECT_EQ(itemType(record), 2);
    EXPECT_EQ(record->value(manifest::nameKey).toString(), text("Tax 2013"));
    EXPECT_FALSE(record->contains(manifest::extensionHiddenKey));
    EXPECT_EQ(m_folder.read(text("Tax 2013.pdf")), "bytes");
    EXPECT_EQ(m_folder.tree(), QStringList(text("Tax 2013.pdf")));
    EXPECT_EQ(platform::resourceValues(m_folder.filePath("Tax 2013.pdf"))->hasHiddenExtension, true);
}

TEST_F(EvernoteXMLItemTest, ADivOfOneMediaElementAndBreaksIsASingleAttachment)
{
    const QByteArray hash = addResource("bytes", "image/png", "a.png");
    setBody("<en-note><div><br/>" + media(hash) + "<br/></div></en-note>");
    const Record record = convert();
    EXPECT_EQ(filename(record), text("Title.png"));
    EXPECT_EQ(itemType(record), 3);
}

TEST_F(EvernoteXMLItemTest, ADivWithTextOrTwoMediaElementsIsANote)
{
    const QByteArray hash = addResource("bytes", "application/pdf", "a.pdf");
    setBody("<en-note><div>text" + media(hash) + "</div></en-note>");
    EXPECT_EQ(itemType(convert()), 1);
    newItem("Two");
    const QByteArray again = addResource("bytes", "application/pdf", "a.pdf");
    setBody("<en-note><div>" + media(again) + media(again) + "</div></en-note>");
    EXPECT_EQ(itemType(convert()), 1);
    newItem("None");
    addResource("bytes", "application/pdf", "a.pdf");
    setBody("<en-note><div><br/></div></en-note>");
    EXPECT_EQ(itemType(convert()), 1);
}

TEST_F(EvernoteXMLItemTest, TwoHundredFiftySevenMediaElementsCountAsOne)
{
    const QByteArray hash = addResource("bytes", "application/pdf", "a.pdf");
    setBody("<en-note><div>" + media(hash).repeated(257) + "</div></en-note>");
    EXPECT_EQ(filename(convert()), text("Title.pdf"));
    newItem("Other");
    const QByteArray again = addResource("bytes", "application/pdf", "a.pdf");
    setBody("<en-note><div>" + media(again).repeated(256) + "</div></en-note>");
    EXPECT_EQ(itemType(convert()), 1);
}

TEST_F(EvernoteXMLItemTest, OneMediaElementButTwoResourcesIsANote)
{
    const QByteArray hash = addResource("one", "application/pdf", "a.pdf");
    addResource("two", "application/pdf", "b.pdf");
    setBody("<en-note>" + media(hash) + "</en-note>");
    EXPECT_EQ(itemType(convert()), 1);
}

TEST_F(EvernoteXMLItemTest, WhiteSpaceBesideTheMediaElementMakesANote)
{
    const QByteArray hash = addResource("bytes", "application/pdf", "a.pdf");
    setBody("<en-note>\n" + media(hash) + "</en-note>");
    EXPECT_EQ(itemType(convert()), 1);
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentWithoutANameIsUntitledWithTheTypesExtension)
{
    makeSingleAttachment("image/png", "");
    const Record record = convert();
    EXPECT_EQ(filename(record), text("Untitled.png"));
    EXPECT_EQ(record->value(manifest::nameKey).toString(), text("Title"));
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentWithoutNameAndTypeIsUntitled)
{
    makeSingleAttachment("", "");
    const Record record = convert();
    EXPECT_EQ(filename(record), text("Untitled"));
    EXPECT_EQ(itemType(record), 2);
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentOfANoteWithoutATitleIsNotHidden)
{
    for (const char* bytes : {"Untitled.pdf", "Untitled 1.pdf", "Untitled 2.pdf"}) {
        newItem("");
        setBody("<en-note>" + media(addResource(bytes, "application/pdf", "Scan.pdf")) + "</en-note>");
        EXPECT_EQ(filename(convert()), text(bytes));
        EXPECT_EQ(m_folder.read(text(bytes)), bytes);
    }
}

TEST_F(EvernoteXMLItemTest, SingleAttachmentsWhoseTitleIsChangedForTheFileAreAllKept)
{
    for (int number = 0; number < 4; ++number) {
        newItem("Meeting 10:30 ~");
        setBody("<en-note>" + media(addResource(QByteArray::number(number), "application/pdf", "a.pdf")) + "</en-note>");
        ASSERT_TRUE(convert());
    }
    EXPECT_EQ(m_folder.tree().size(), 4);
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentsNameWithoutAnExtensionStands)
{
    makeSingleAttachment("application/pdf", "README");
    EXPECT_EQ(filename(convert()), text("README"));
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentsNameIsMadeUnique)
{
    static_cast<void>(m_folder.write(text("Title.pdf"), "other"));
    makeSingleAttachment("application/pdf", "a.pdf");
    EXPECT_EQ(filename(convert()), text("Title 1.pdf"));
    EXPECT_EQ(m_folder.read(text("Title.pdf")), "other");
}

TEST_F(EvernoteXMLItemTest, OutsideAnImportedFolderASingleAttachmentGoesToTheFolderOfItsKind)
{
    m_group = manifest::makeRecord();
    QDir(m_folder.path()).mkdir(text("Documents"));
    makeSingleAttachment("application/pdf", "a.pdf");
    EXPECT_EQ(convert()->value(manifest::absoluteFilenameKey).toString(), m_folder.filePath("Documents/Title.pdf"));
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentThatCannotBeWrittenFallsBackToANote)
{
    newItem("AC/DC");
    makeSingleAttachment("application/pdf", "a.pdf");
    const Record record = convert();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 1);
    EXPECT_EQ(filename(record), text("AC-DC.qlnote"));
    EXPECT_EQ(noteText(record).count(QChar(0xFFFC)), 1);
    EXPECT_FALSE(m_error.isNull());
}

TEST_F(EvernoteXMLItemTest, ASingleAttachmentNeverLeavesTheFolder)
{
    const test::ScratchFolder outer;
    QDir(outer.path()).mkdir(text("inner"));
    m_item = std::make_unique<EvernoteXMLItem>(QUrl::fromLocalFile(outer.filePath("inner")));
    m_item->setTitle(text("../escaped"));
    makeSingleAttachment("application/pdf", "a.pdf");
    EXPECT_EQ(filename(convert()), text("-.-escaped.qlnote"));
    EXPECT_TRUE(outer.tree().contains(text("inner/-.-escaped.qlnote/")));
    EXPECT_FALSE(QFileInfo::exists(outer.filePath("escaped.pdf")));
}

TEST_F(EvernoteXMLItemTest, ANoteNameThatIsTakenGetsAVariant)
{
    setBody(plainBody);
    convert();
    newItem();
    setBody(plainBody);
    const Record second = convert();
    EXPECT_EQ(filename(second), text("Title 1.qlnote"));
    EXPECT_EQ(second->value(manifest::nameKey).toString(), text("Title 1"));
}

TEST_F(EvernoteXMLItemTest, OutsideAnImportedFolderNotesGoToNotesButClashesAreLookedForAtTheTop)
{
    m_group = manifest::makeRecord();
    QDir(m_folder.path()).mkpath(text("Notes/Title.qlnote"));
    setBody(plainBody);
    const Record record = convert();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->value(manifest::absoluteFilenameKey).toString(), m_folder.filePath("Notes/Title.qlnote"));
}

TEST_F(EvernoteXMLItemTest, ANoteWithoutATitleIsKeptUntitled)
{
    for (const char* title : {"", "  \n "}) {
        newItem(title);
        setBody(plainBody);
        EXPECT_TRUE(filename(convert()).startsWith(text("Untitled"))) << title;
    }
    EXPECT_EQ(m_folder.tree().filter(text("TXT.rtf")).size(), 2);
}

TEST_F(EvernoteXMLItemTest, TitlesOfEveryKindGiveASafeNameAndKeepTheNote)
{
    const QStringList titles{text("a/b/c"), text(".."), text("."), text(".hidden"), text("tab\there"), text("bell\u0085x"),
                             text("\u202Eright to left"), text("\U0001F600 emoji"), QString(5000, u'x'),
                             QString(100, QChar(0x65E5)), text("~home"), text("colon: x"), text("con.qlnote"),
                             text("Sentence one. ") + text("words ").repeated(900),
                             text("https://example.com/") + QString(300, u'x'), text("Report.") + QString(5000, u'x')};
    for (const QString& title : titles) {
        newItem();
        m_item->setTitle(title);
        setBody(plainBody);
        const Record record = convert();
        ASSERT_TRUE(record) << testing::PrintToString(title.left(20));
        EXPECT_LE(filename(record).toUtf8().size(), 255);
        EXPECT_EQ(QFileInfo(record->value(manifest::absoluteFilenameKey).toString()).path(), m_folder.path());
        EXPECT_EQ(noteText(record), text("Hello\n"));
    }
}

TEST_F(EvernoteXMLItemTest, NotesOfTheSameLongTitleAreAllKept)
{
    for (int number = 0; number < 4; ++number) {
        newItem();
        m_item->setTitle(QString(300, u'a'));
        setBody("<en-note>number " + QByteArray::number(number) + "</en-note>");
        const Record record = convert();
        ASSERT_TRUE(record);
        EXPECT_EQ(noteText(record), text("number %1\n").arg(number));
    }
    EXPECT_EQ(m_folder.tree().filter(text("TXT.rtf")).size(), 4);
}

TEST_F(EvernoteXMLItemTest, ABodyWithAnotherRootIsPutIntoANote)
{
    setBody("<div>other root</div>");
    EXPECT_EQ(noteText(convert()), text("other root\n"));
}

TEST_F(EvernoteXMLItemTest, MalformedMarkupIsRepairedWithAWarning)
{
    setBody("<en-note><div>one<br>two & three</div><b>four</en-note>");
    const QString repaired = noteText(convert());
    for (const char* word : {"one", "two & three", "four"})
        EXPECT_TRUE(repaired.contains(text(word))) << word;
    ASSERT_FALSE(m_item->warnings().isEmpty());
    EXPECT_TRUE(m_item->warnings().first().contains(text("repaired")));
}

TEST_F(EvernoteXMLItemTest, NamedEntitiesOfHtmlAreKnown)
{
    setBody("<en-note>a&nbsp;b&eacute;&hellip;</en-note>");
    EXPECT_TRUE(noteText(convert()).startsWith(text("a\u00A0b\u00E9\u2026")));
    EXPECT_TRUE(m_item->warnings().isEmpty());
}

TEST_F(EvernoteXMLItemTest, ABodyThatIsNoneIsAnErrorThatSaysSo)
{
    for (const char* body : {"", "   \n", "<?xml version=\"1.0\"?>"}) {
        newItem();
        setBody(body);
        EXPECT_FALSE(convert()) << body;
        EXPECT_FALSE(m_error.isNull()) << body;
        EXPECT_FALSE(m_error.localizedDescription().isEmpty());
    }
    EXPECT_TRUE(m_folder.tree().isEmpty());
}

TEST_F(EvernoteXMLItemTest, OddBytesNeverEmptyANote)
{
    const QByteArrayList bodies{" \n<?xml version=\"1.0\"?><en-note>kept text</en-note>", "\xEF\xBB\xBF<en-note>kept text</en-note>",
                                "<en-note>kept\x01\x02 text</en-note>", "<en-note>kept \xFF\xFE text</en-note>",
                                "<en-note>kept text", "kept text", "<en-note>kept text</en-note>trailing"};
    for (const QByteArray& body : bodies) {
        newItem();
        setBody(body);
        const Record record = convert();
        ASSERT_TRUE(record) << body.constData();
        EXPECT_TRUE(noteText(record).contains(text("kept"))) << body.constData();
        EXPECT_TRUE(noteText(record).contains(text("text"))) << body.constData();
    }
}

TEST_F(EvernoteXMLItemTest, AHundredThousandLevelsAreAnErrorOrANoteButNoCrash)
{
    setBody("<en-note>" + QByteArray("<div>").repeated(100000) + "deep" + QByteArray("</div>").repeated(100000) + "</en-note>");
    const Record record = convert();
    EXPECT_TRUE(record || !m_error.isNull());
}

TEST_F(EvernoteXMLItemTest, WithoutItsScratchFolderANoteFails)
{
    m_item = std::make_unique<EvernoteXMLItem>(QUrl::fromLocalFile(m_folder.filePath("gone")));
    setBody(plainBody);
    EXPECT_FALSE(convert());
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
}

TEST_F(EvernoteXMLItemTest, TheScratchFolderGoesAwayAfterAFailureToo)
{
    const QByteArray hash = addResource("x", "application/pdf", "a/b.pdf");
    setBody("<en-note>text" + media(hash) + "</en-note>");
    EXPECT_FALSE(convert());
    EXPECT_FALSE(m_error.isNull());
    EXPECT_TRUE(m_folder.tree().isEmpty());
}

TEST_F(EvernoteXMLItemTest, TheScratchFolderGoesAwayAfterAnExceptionToo)
{
    setBody("<en-note>***QUILLERYATTACHMENT without an end</en-note>");
    EXPECT_THROW(convert(), std::out_of_range);
    EXPECT_TRUE(m_folder.tree().isEmpty());
}

TEST_F(EvernoteXMLItemTest, AScratchFolderThatCannotBeRemovedIsTheErrorOfANoteThatIsWrittenAllTheSame)
{
    std::unique_ptr<test::UnremovableFolder> folder;
    // A resource without data is logged while the scratch folder is in use.
    const platform::SystemLogObserver observer([&](const QString&) {
        if (!folder)
            folder = std::make_unique<test::UnremovableFolder>(m_folder.filePath(m_item->identifier()) + text("/kept"));
    });
    addResource("", "application/pdf", "none.pdf");
    setBody("<en-note>text" + media("0") + "</en-note>");
    const Record record = convert();
    ASSERT_TRUE(folder);
    if (!folder->isMade())
        GTEST_SKIP() << "no folder can be made that the superuser cannot remove";
    ASSERT_TRUE(record);
    EXPECT_EQ(filename(record), text("Title.qlnote"));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_TRUE(m_error.localizedDescription().contains(text("/kept")));
    EXPECT_EQ(noteText(record), text("text[Missing Attachment]\n"));
}

TEST_F(EvernoteXMLItemTest, OnlyTheExactSourceMakesAClip)
{
    for (const char* source : {"web.clip7", "Web.clip", "web.clip ", "mobile.android", ""}) {
        newItem(source);
        m_item->noteAttributes().setSource(text(source));
        m_item->noteAttributes().setSourceURL(text("http://example.org/"));
        setBody(plainBody);
        const Record record = convert();
        ASSERT_TRUE(record) << source;
        EXPECT_EQ(itemType(record), 1) << source;
        EXPECT_EQ(record->value(manifest::commentsKey).toString(), text("http://example.org/")) << source;
    }
}

TEST_F(EvernoteXMLItemTest, WithoutAFolderRecordFilesGoToTheLibrarysFolders)
{
    m_group = nullptr;
    for (const char* folder : {"Notes", "Documents"})
        ASSERT_TRUE(QDir(m_folder.path()).mkdir(text(folder)));
    setBody(plainBody);
    EXPECT_EQ(convert()->value(manifest::absoluteFilenameKey).toString(), m_folder.filePath("Notes/Title.qlnote"));
    newItem("Single");
    makeSingleAttachment("application/pdf", "a.pdf");
    EXPECT_EQ(convert()->value(manifest::absoluteFilenameKey).toString(), m_folder.filePath("Documents/Single.pdf"));
}

TEST_F(EvernoteXMLItemTest, AClipWithoutASourceUrlIsANote)
{
    m_item->noteAttributes().setSource(text("web.clip"));
    setBody(plainBody);
    EXPECT_EQ(itemType(convert()), 1);
}

TEST_F(EvernoteXMLItemTest, AttachmentsThatAreMissingOrNotShownAndEncryptedTextAreWarnedOf)
{
    addResource("x", "application/pdf", "forgotten.pdf");
    setBody("<en-note>text" + media("0123456789abcdef0123456789abcdef") + "<en-crypt>RU5D</en-crypt></en-note>");
    ASSERT_TRUE(convert());
    ASSERT_EQ(m_item->warnings().size(), 3);
    EXPECT_TRUE(m_item->warnings()[2].contains(text("forgotten.pdf")));
}

TEST_F(EvernoteXMLItemTest, LibraryFoldersByType)
{
    const QStringList names{text("Notes"), text("Documents"), text("Images"), text("Sounds"), text("Movies"), text("Bookmarks"), text("Web Pages")};
    for (int type = 1; type <= 7; ++type)
        EXPECT_EQ(EvernoteXMLItem::libraryFolderForType(type), names[type - 1]);
    EXPECT_FALSE(EvernoteXMLItem::libraryFolderForType(0));
    EXPECT_FALSE(EvernoteXMLItem::libraryFolderForType(8));
}

TEST_F(EvernoteXMLItemTest, AttributesThatCannotBeSetCostALineInTheSystemsLog)
{
    m_item->setAttributesOnFile(QUrl::fromLocalFile(text("/nowhere/at all/\u00E9")));
    ASSERT_EQ(m_systemLog.size(), 1);
    EXPECT_EQ(m_systemLog[0], text("Couldn't set resource values on file:///nowhere/at%20all/%C3%A9"));
}

} // namespace
