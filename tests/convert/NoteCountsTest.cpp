// SPDX-License-Identifier: MIT
//
// What became of all that a note held: what its counts say, and what is kept.
#include "convert/ConversionFixture.h"
#include "convert/NoteLinks.h"
#include "formats/QLNoteFile.h"
#include "platform/operations/OperationQueue.h"

#include "support/QtPrinting.h"

#include "platform/webview/HttpTestServer.h"

#include <QEventLoop>

#include <thread>

namespace {

namespace manifest = platform::manifest;
using manifest::Record;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QByteArray png = QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlE"
                                              "QVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==");

class NoteCountsTest : public ConversionTest {
protected:
    void keepUnreferenced()
    {
        platform::UserDefaults::standard().setOverride(text("KeepUnreferencedAttachments"), true);
    }

    // Checks the sums that must agree, whatever a note holds.
    NoteCounts countsOf(const Record& record)
    {
        EXPECT_TRUE(record) << m_error.description().toStdString();
        const NoteCounts& counts = m_item->counts();
        EXPECT_EQ(counts.resources, m_item->resources().size());
        EXPECT_EQ(counts.resources,
                  counts.shownResources + counts.keptResources + counts.leftOutResources);
        EXPECT_EQ(counts.tasks, counts.taskLines + counts.leftOutTasks);
        EXPECT_GE(counts.links, counts.resolvedLinks);
        EXPECT_EQ(counts.resolvedLinks, static_cast<quint64>(m_item->linkedNotes().size()));
        return counts;
    }

    // The bytes of the files that the note's text has attached.
    QByteArrayList attachmentsIn(const Record& record)
    {
        QByteArrayList bytes;
        const auto note = QLNoteFile::noteFileWithFileURL(
            QUrl::fromLocalFile(record->value(manifest::absoluteFilenameKey).toString()));
        if (!note)
            return {"no note"};
        for (const auto& run : note->noteText().runs()) {
            if (run.attributes->attachment && run.attributes->attachment->fileWrapper())
                bytes += run.attributes->attachment->fileWrapper()->contents();
        }
        return bytes;
    }

    // Clips wait for the main thread.
    Record convertClip(const QString& address = text("http://example.org/clipped"))
    {
        m_item->noteAttributes().setSource(text("web.clip"));
        m_item->noteAttributes().setSourceURL(address);
        Record record;
        platform::OperationQueue queue;
        queue.addOperationWithBlock([&] { record = convert(); });
        QEventLoop loop;
        std::thread waiter([&] {
            queue.waitUntilAllOperationsAreFinished();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        loop.exec();
        waiter.join();
        return record;
    }
};

TEST_F(NoteCountsTest, AnAttachmentIsShownOrLeftOut)
{
    const QByteArray shown = addResource("shown", "application/pdf", "a.pdf");
    addResource("not shown", "application/pdf", "b.pdf");
    setBody("<en-note>x" + media(shown) + media(shown) + media("00") + "</en-note>");
    const NoteCounts counts = countsOf(convert());
    EXPECT_EQ(counts.shownResources, 1u);
    EXPECT_EQ(counts.leftOutResources, 1u);
    EXPECT_EQ(counts.keptResources, 0u);
    EXPECT_EQ(counts.missingAttachments, 1u);
}

TEST_F(NoteCountsTest, ANoteThatIsItsAttachmentShowsIt)
{
    setBody("<en-note>" + media(addResource("shown", "application/pdf", "a.pdf")) + "</en-note>");
    EXPECT_EQ(countsOf(convert()).shownResources, 1u);
}

TEST_F(NoteCountsTest, AHiddenAttachmentIsLeftOut)
{
    const QByteArray hash = addResource("hidden", "application/pdf", "a.pdf");
    setBody("<en-note>x<div style=\"display:none\">" + media(hash) + "</div></en-note>");
    const Record record = convert();
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(counts.shownResources, 0u);
    EXPECT_EQ(counts.leftOutResources, 1u);
    EXPECT_THAT(attachmentsIn(record), IsEmpty());
    EXPECT_EQ(m_item->warnings().size(), 1);
}

TEST_F(NoteCountsTest, AnAttachmentThatIsHiddenOnceAndShownOnceIsShown)
{
    const QByteArray hash = addResource("both", "application/pdf", "a.pdf");
    setBody("<en-note>x<div style=\"display:none\">" + media(hash) + "</div>" + media(hash) +
            "</en-note>");
    EXPECT_EQ(countsOf(convert()).shownResources, 1u);
}

TEST_F(NoteCountsTest, WhatTheBodyDoesNotNameIsKeptAtTheEndWhenThePersonWantsIt)
{
    keepUnreferenced();
    const QByteArray shown = addResource("shown", "application/pdf", "a.pdf");
    addResource("unnamed", "application/pdf", "b.pdf");
    addResource(png, "image/png", "c.png");
    addResource("unnamed too", "", "");
    setBody("<en-note>x" + media(shown) + "y</en-note>");
    const Record record = convert();
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(counts.shownResources, 1u);
    EXPECT_EQ(counts.keptResources, 3u);
    EXPECT_EQ(counts.leftOutResources, 0u);
    EXPECT_THAT(attachmentsIn(record), ElementsAre("shown", "unnamed", png, "unnamed too"));
    EXPECT_THAT(m_item->warnings(), IsEmpty());
}

TEST_F(NoteCountsTest, AHiddenAttachmentIsKeptAtTheEndWhenThePersonWantsIt)
{
    keepUnreferenced();
    const QByteArray hash = addResource("hidden", "application/pdf", "a.pdf");
    addResource("unnamed", "application/pdf", "b.pdf");
    setBody("<en-note>x<div style=\"display:none\">" + media(hash) + media(hash) +
            "</div></en-note>");
    const Record record = convert();
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(counts.shownResources, 0u);
    EXPECT_EQ(counts.keptResources, 2u);
    EXPECT_THAT(attachmentsIn(record), ElementsAre("unnamed", "hidden"));
    EXPECT_THAT(m_item->warnings(), IsEmpty());
}

TEST_F(NoteCountsTest, AnAttachmentWithoutDataCannotBeKept)
{
    keepUnreferenced();
    addResource("", "application/pdf", "a.pdf");
    setBody("<en-note>x</en-note>");
    EXPECT_EQ(countsOf(convert()).leftOutResources, 1u);
    EXPECT_EQ(m_item->warnings().size(), 1);
}

TEST_F(NoteCountsTest, TheOnlyAttachmentOfAnEmptyNoteIsKept)
{
    addResource("alone", "application/pdf", "a.pdf");
    setBody("<en-note/>");
    EXPECT_EQ(countsOf(convert()).leftOutResources, 1u);
    keepUnreferenced();
    newItem();
    addResource("alone", "application/pdf", "a.pdf");
    setBody("<en-note/>");
    const Record record = convert();
    EXPECT_EQ(countsOf(record).keptResources, 1u);
    EXPECT_THAT(attachmentsIn(record), ElementsAre("alone"));
}

TEST_F(NoteCountsTest, AttachmentsOfOneContentAreAllCounted)
{
    const QByteArray hash = addResource("same", "application/pdf", "a.pdf");
    addResource("same", "application/pdf", "b.pdf");
    setBody("<en-note>x" + media(hash) + "</en-note>");
    EXPECT_EQ(countsOf(convert()).shownResources, 2u);
}

TEST_F(NoteCountsTest, AClipCountsItsImages)
{
    const QByteArray shown = addResource(png, "image/png", "a.png");
    addResource(png + "2", "image/png", "b.png");
    setBody("<en-note><p>x</p>" + media(shown, "type=\"image/png\"") + media("00") + "</en-note>");
    const NoteCounts counts = countsOf(convertClip());
    EXPECT_EQ(counts.shownResources, 1u);
    EXPECT_EQ(counts.leftOutResources, 1u);
    EXPECT_EQ(counts.missingAttachments, 1u);
}

TEST_F(NoteCountsTest, AClipThatBecomesANoteCountsOnce)
{
    const QByteArray image = addResource(png, "image/png", "a.png");
    const QByteArray document = addResource("document", "application/pdf", "a.pdf");
    setBody("<en-note><p>x</p>" + media(image, "type=\"image/png\"") +
            media(document, "type=\"application/pdf\"") + media("00") + "</en-note>");
    const Record record = convertClip();
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(record->value(manifest::itemTypeKey).toInt(), EvernoteXMLItemTypeNote);
    EXPECT_EQ(counts.shownResources, 2u);
    EXPECT_EQ(counts.missingAttachments, 1u);
}

TEST_F(NoteCountsTest, AClipThatKeepsADocumentBecomesANote)
{
    keepUnreferenced();
    addResource("document", "application/pdf", "a.pdf");
    setBody("<en-note><p>x</p></en-note>");
    const Record record = convertClip();
    EXPECT_EQ(record->value(manifest::itemTypeKey).toInt(), EvernoteXMLItemTypeNote);
    EXPECT_EQ(countsOf(record).keptResources, 1u);
    EXPECT_THAT(attachmentsIn(record), ElementsAre("document"));
}

TEST_F(NoteCountsTest, APageThatIsLoadedAgainShowsNothingOfItsNote)
{
    test::HttpTestServer server;
    server.serve(text("/page"), "<p>of today");
    platform::UserDefaults::standard().setOverride(text("ReloadFromWeb"), true);
    keepUnreferenced();
    const QByteArray image = addResource(png, "image/png", "a.png");
    addResource("unnamed", "application/pdf", "a.pdf");
    setBody("<en-note><p>x</p>" + media(image, "type=\"image/png\"") + "</en-note>");
    m_item->counts().tasks = m_item->counts().taskLines = 2;
    const Record record = convertClip(server.address(text("/page")));
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(record->value(manifest::itemTypeKey).toInt(), EvernoteXMLItemTypeWebPage);
    EXPECT_EQ(counts.leftOutResources, 2u);
    EXPECT_EQ(counts.leftOutTasks, 2u);
    EXPECT_EQ(counts.taskLines, 0u);
    // One for the tasks, one for the document.
    EXPECT_EQ(m_item->warnings().size(), 2);
}

TEST_F(NoteCountsTest, EncryptedPassagesAreCountedInNotesAndClips)
{
    const QByteArray body =
        "<en-note>a<en-crypt hint=\"h\">x</en-crypt><div><en-crypt>y</en-crypt></div></en-note>";
    setBody(body);
    EXPECT_EQ(countsOf(convert()).encryptedPassages, 2u);
    newItem();
    setBody(body);
    EXPECT_EQ(countsOf(convertClip()).encryptedPassages, 2u);
    newItem();
    setBody("<en-note>en-crypt</en-note>");
    EXPECT_EQ(countsOf(convert()).encryptedPassages, 0u);
}

TEST_F(NoteCountsTest, LinksToNotesAreCountedAndStayAsTheyAre)
{
    setBody(
        "<en-note><a href=\"evernote:///view/1/s1/g/g/\">One</a><a "
        "href=\"https://example.org/\">web</a>"
        "<div><a href=\"EVERNOTE:///view/1/s1/h/h/\"><b>T</b>wo</a></div><a>none</a></en-note>");
    const Record record = convert();
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(counts.links, 2u);
    EXPECT_EQ(counts.resolvedLinks, 0u);
}

TEST_F(NoteCountsTest, ALinkWhoseTextIsOneNotesTitleLeadsToItsItem)
{
    const auto targets = std::make_shared<NoteLinkTargets>();
    for (const char* title : {"One", "Two", "Two", "Three"})
        targets->addNote(text(title));
    m_item->setLinkTargets(targets);
    setBody(
        "<en-note><a href=\"evernote:///view/1/s1/g/g/\">\n O<i>ne</i></a> <a "
        "href=\"evernote:///view/1/s1/h/h/\">Two</a>"
        "<a href=\"evernote:///view/1/s1/i/i/\">Four</a><a href=\"https://example.org/\">Three</a>"
        "<a href=\"evernote:///view/1/s1/j/j/\"></a></en-note>");
    const Record record = convert();
    const NoteCounts counts = countsOf(record);
    EXPECT_EQ(counts.links, 4u);
    EXPECT_EQ(counts.resolvedLinks, 1u);
    const QString identifier = *targets->identifierForTitle(text("One"));
    EXPECT_THAT(m_item->linkedNotes(), ElementsAre(identifier));
    const auto note = QLNoteFile::noteFileWithFileURL(
        QUrl::fromLocalFile(record->value(manifest::absoluteFilenameKey).toString()));
    ASSERT_TRUE(note);
    QStringList addresses;
    for (const auto& run : note->noteText().runs()) {
        if (!run.attributes->link.isEmpty() && !addresses.contains(run.attributes->link))
            addresses += run.attributes->link;
    }
    EXPECT_THAT(addresses,
                ElementsAre(itemLinkPrefix + identifier, text("evernote:///view/1/s1/h/h/"),
                            text("evernote:///view/1/s1/i/i/"), text("https://example.org/")));
}

TEST_F(NoteCountsTest, ADeeplyNestedBodyIsWalkedThrough)
{
    const QByteArray depth = QByteArray("<div>").repeated(200);
    setBody("<en-note>" + depth + "<a href=\"evernote:///view/1/s1/g/g/\">x</a>" +
            QByteArray("</div>").repeated(200) +
            "<a href=\"evernote:///view/1/s1/g/g/\">y</a></en-note>");
    EXPECT_EQ(countsOf(convert()).links, 2u);
}

TEST(NoteCountsSumTest, CountsOfManyNotesAddUp)
{
    NoteCounts one;
    one.resources = 3;
    one.shownResources = 2;
    one.leftOutResources = 1;
    one.tasks = one.taskLines = 4;
    one.links = 5;
    NoteCounts total;
    total += one;
    total += one.ofSkippedNote();
    EXPECT_EQ(total.resources, 6u);
    EXPECT_EQ(total.resourcesOfSkippedNotes, 3u);
    EXPECT_EQ(total.shownResources + total.keptResources + total.leftOutResources +
                  total.resourcesOfSkippedNotes,
              total.resources);
    EXPECT_EQ(total.taskLines + total.leftOutTasks + total.tasksOfSkippedNotes, total.tasks);
    EXPECT_EQ(total.tasksOfSkippedNotes, 4u);
    EXPECT_EQ(total.links, 5u);
}

} // namespace
