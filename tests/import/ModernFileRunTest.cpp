// SPDX-License-Identifier: MIT
//
// A run over a file of today's Evernote: how it is read, and what is said of it.
#include "import/RunFixture.h"
#include "platform/defaults/UserDefaults.h"

#include "support/QtPrinting.h"

namespace {

using ModernFiles = EvernoteXMLFileExportOperation::ModernFiles;
using platform::UserDefaults;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

const QByteArray modernFile =
    "<en-export application=\"Evernote\" version=\"10.59.5\">\n<note>\n<title>Plan</title>\n"
    "<created>20240501T120000Z</created>\n<tag>garden</tag>\n"
    "<content>\n<![CDATA[<en-note>x<en-crypt>y</en-crypt></en-note>]]>\n</content>\n"
    "<task><title>Dig</title></task>\n<resource><data encoding=\"base64\">QQ==</data></resource>\n"
    "</note>\n</en-export>";

class ModernFileRunTest : public ImportRunTest {
protected:
    void SetUp() override
    {
        ImportRunTest::SetUp();
        m_bridge->installed.insert(platform::quillery::identifier, m_quillery);
    }
    void TearDown() override
    {
        UserDefaults::standard().clearOverrides();
        ImportRunTest::TearDown();
    }

    static void set(const char* key, bool value)
    {
        UserDefaults::standard().setOverride(text(key), value);
    }

    const ImportReport& imported(const QByteArray& enex,
                                 ModernFiles modernFiles = ModernFiles::BySetting)
    {
        m_operation = std::make_shared<EvernoteXMLFileExportOperation>();
        m_operation->setExportFileURL(
            QUrl::fromLocalFile(m_folder.write(text("Notes.enex"), enex)));
        m_operation->setModernFiles(modernFiles);
        prepare(*m_operation);
        run(m_operation);
        return m_operation->report();
    }

    [[nodiscard]] QVariantMap onlyItem() const { return records(text("Item")).value(0); }
    [[nodiscard]] bool isWhole() const { return onlyItem().contains(text("dateCreated")); }

    std::shared_ptr<EvernoteXMLFileExportOperation> m_operation;
};

} // namespace

TEST_F(ModernFileRunTest, ByItselfAFileIsReadAsItStandsAndWhatItLosesIsSaid)
{
    const ImportReport& report = imported(modernFile);
    EXPECT_FALSE(isWhole());
    EXPECT_EQ(onlyItem().value(text("tagsString")), text("garden,"));
    EXPECT_TRUE(report.modernSigns.isModern());
    EXPECT_FALSE(report.isReadAsModern);
    EXPECT_EQ(report.remarks.size(), 3);
    EXPECT_EQ(report.counts.tasks, 1u);
    EXPECT_EQ(report.counts.leftOutTasks, 1u);
    EXPECT_THAT(
        logLines(),
        Contains(
            text("The file is of today's Evernote and is read as it stands (ModernENEX is off).")));
    EXPECT_THAT(
        logLines(),
        Contains(text("Lost by that: 1 tasks, whose titles and dates run into their notes'.")));
    EXPECT_THAT(logLines(),
                Contains(text("To keep them, import the file again with ModernENEX on.")));
}

TEST_F(ModernFileRunTest, TheSettingHasItReadWhole)
{
    set("ModernENEX", true);
    const ImportReport& report = imported(modernFile);
    EXPECT_TRUE(isWhole());
    EXPECT_EQ(onlyItem().value(text("tagsString")), text("garden"));
    EXPECT_TRUE(report.isReadAsModern);
    EXPECT_FALSE(report.isRecognizedAsModern);
    EXPECT_THAT(report.remarks, IsEmpty());
    EXPECT_EQ(report.counts.taskLines, 1u);
    EXPECT_EQ(report.counts.resources, 1u);
    EXPECT_EQ(report.counts.leftOutResources, 1u);
    EXPECT_EQ(report.counts.encryptedPassages, 1u);
    EXPECT_THAT(logLines(),
                Contains(text("The file is of today's Evernote and is read whole (ModernENEX).")));
}

TEST_F(ModernFileRunTest, ARecognizedFileIsReadWholeWithoutTheSetting)
{
    const ImportReport& report = imported(modernFile, ModernFiles::Recognized);
    EXPECT_TRUE(isWhole());
    EXPECT_TRUE(report.isReadAsModern);
    EXPECT_TRUE(report.isRecognizedAsModern);
    EXPECT_THAT(report.remarks, IsEmpty());
}

TEST_F(ModernFileRunTest, WhatIsChosenForTheRunHoldsBeforeTheSetting)
{
    EXPECT_TRUE(imported(modernFile, ModernFiles::ReadWhole).isReadAsModern);
    EXPECT_TRUE(isWhole());
    set("ModernENEX", true);
    EXPECT_FALSE(imported(modernFile, ModernFiles::ReadAsItStands).isReadAsModern);
    EXPECT_FALSE(isWhole());
}

TEST_F(ModernFileRunTest, AClassicFileIsNothingToTalkAbout)
{
    const ImportReport& report = imported(enex(note("a")), ModernFiles::Recognized);
    EXPECT_FALSE(report.modernSigns.isModern());
    EXPECT_FALSE(report.isReadAsModern);
    EXPECT_THAT(report.remarks, IsEmpty());
    EXPECT_THAT(logLines(),
                Not(Contains(::testing::ResultOf(
                    [](const QString& line) { return line.contains(text("today's")); }, true))));
}

TEST_F(ModernFileRunTest, AFileThatOnlyCallsItselfModernLosesNothingAndNothingIsSaidOfIt)
{
    const ImportReport& report = imported("<en-export application=\"Evernote\" version=\"11.0\">" +
                                          note("a") + "</en-export>");
    EXPECT_TRUE(report.modernSigns.isModern());
    EXPECT_THAT(report.remarks, IsEmpty());
}

TEST_F(ModernFileRunTest, StampsAreReadAsTheSettingSays)
{
    const QByteArray file =
        enex(note("a", "<en-note>x</en-note>", "<created>20240501T120000Z</created>"));
    qputenv("TZ", "Asia/Tokyo");
    imported(file);
    const QDateTime wall = onlyItem().value(text("dateCreated")).toDateTime();
    set("TimestampsInUTC", true);
    imported(file);
    qputenv("TZ", "UTC");
    EXPECT_EQ(onlyItem().value(text("dateCreated")).toDateTime(),
              QDateTime(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC));
    // The zone of the formatter is the one that the process began with.
    EXPECT_TRUE(wall.isValid());
}

TEST_F(ModernFileRunTest, LinksLeadToNotesBeforeAndAfter)
{
    const QByteArray body = "<en-note><a href=\"evernote:///view/1/s/2/3/\">First</a> "
                            "<a href=\"evernote:///view/1/s/4/5/\">Last</a></en-note>";
    set("ResolveNoteLinks", true);
    const ImportReport& report = imported(enex(note("First", body) + note("Last", body)));
    EXPECT_EQ(report.counts.links, 4u);
    EXPECT_EQ(report.counts.resolvedLinks, 4u);
    EXPECT_THAT(report.remarks, IsEmpty());
    for (const QVariantMap& item : records(text("Item"))) {
        const QByteArray rtf =
            test::readFile(item.value(text("absoluteFilename")).toString() + text("/TXT.rtf"));
        for (const QVariantMap& target : records(text("Item")))
            EXPECT_TRUE(rtf.contains("quillery://item/" +
                                     target.value(text("identifier")).toString().toUtf8()));
    }
}

TEST_F(ModernFileRunTest, LinksToANoteThatIsSkippedLaterAreTold)
{
    const QByteArray body = "<en-note><a href=\"evernote:///view/1/s/2/3/\">Gone</a></en-note>";
    set("ResolveNoteLinks", true);
    const ImportReport& report =
        imported(enex(note("First", body) + note("Gone", "") + note("Last", body)));
    EXPECT_EQ(report.skipped.size(), 1u);
    EXPECT_THAT(report.remarks,
                ElementsAre(text("Links that lead to notes which were skipped: 2.")));
}

TEST_F(ModernFileRunTest, LinksStayAsTheyAreWithoutTheSetting)
{
    const ImportReport& report =
        imported(enex(note("a", "<en-note><a href=\"evernote:///view/1/s/2/3/\">a</a></en-note>")));
    EXPECT_EQ(report.counts.links, 1u);
    EXPECT_EQ(report.counts.resolvedLinks, 0u);
}

TEST_F(ModernFileRunTest, WhatSkippedNotesHeldIsCountedApart)
{
    const QByteArray held =
        "<task/><task/><resource><data encoding=\"base64\">QQ==</data></resource>";
    const ImportReport& report =
        imported(enex(note("a", "", held) + note("b", "<en-note>x</en-note>", held)));
    EXPECT_EQ(report.skipped.size(), 1u);
    EXPECT_EQ(report.counts.resources, 2u);
    EXPECT_EQ(report.counts.resourcesOfSkippedNotes, 1u);
    EXPECT_EQ(report.counts.leftOutResources, 1u);
    EXPECT_EQ(report.counts.tasks, 4u);
    EXPECT_EQ(report.counts.tasksOfSkippedNotes, 2u);
    EXPECT_EQ(report.counts.leftOutTasks, 2u);
}

TEST_F(ModernFileRunTest, EveryNoteThatIsCountedIsTold)
{
    const ImportReport& report =
        imported("<e><note><title>a<note/></title><x><note><title>b</title></note></x>"
                 "<content><![CDATA[<en-note>c</en-note>]]></content></note></e>",
                 ModernFiles::ReadWhole);
    EXPECT_EQ(report.notes, 3u);
    EXPECT_EQ(report.items, 1u);
    EXPECT_EQ(report.skipped.size(), 2u);
}
