// SPDX-License-Identifier: MIT
#include "tools/CommandFixture.h"

namespace {

using test::CommandResult;
using test::text;

class ModernFilesCommandTest : public test::CommandTest {
protected:
    // A file of one indented note with a task.
    QString modernFile()
    {
        return file("Modern.enex",
                    "\n<note>\n<title>Plan</title>\n<created>20240501T120000Z</created>\n"
                    "<content>\n<![CDATA[<en-note>x</en-note>]]>\n</content>\n"
                    "<task><title>Dig</title></task>\n</note>\n");
    }

    CommandResult runWith(const QStringList& options)
    {
        return run(QStringList{text("--files-folder"), text("out"), text("--report"),
                               text("report.json")} +
                   options);
    }

    [[nodiscard]] QJsonObject tasks() const { return report().value(text("tasks")).toObject(); }
};

} // namespace

TEST_F(ModernFilesCommandTest, AModernFileIsReadWholeAndTheRunSaysSo)
{
    const QString modern = modernFile();
    const CommandResult result = runWith({modern});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.contains(
        text("was read with the setting ModernENEX on; --exact leaves it off.")));
    EXPECT_TRUE(result.output.contains(text("Tasks: 1 (1 to-do lines).")));
    EXPECT_EQ(result.lastLine(), text("1 note: 1 became an item, none were skipped."));
    EXPECT_EQ(tasks().value(text("toDoLines")).toInt(), 1);
    EXPECT_TRUE(runs()
                    .at(0)
                    .toObject()
                    .value(text("modern"))
                    .toObject()
                    .value(text("recognized"))
                    .toBool());
}

TEST_F(ModernFilesCommandTest, ItIsReadAsItStandsWhereThatIsWanted)
{
    const QString modern = modernFile();
    for (const QStringList& options :
         {QStringList{text("--exact")}, QStringList{text("--set"), text("ModernENEX=NO")}}) {
        const CommandResult result = runWith(options + QStringList{modern});
        EXPECT_EQ(result.status, 0);
        EXPECT_FALSE(result.output.contains(text("--exact leaves it off")));
        EXPECT_TRUE(result.output.contains(
            text("Tasks that were lost because the file was read as it stands: 1.")));
        EXPECT_TRUE(result.output.contains(text("Tasks: 1 (1 left out).")));
        EXPECT_EQ(tasks().value(text("leftOut")).toInt(), 1);
        EXPECT_EQ(runs().at(0).toObject().value(text("remarks")).toArray().size(), 3);
    }
}

TEST_F(ModernFilesCommandTest, ToAskForBothWaysIsWrongUsage)
{
    const QString modern = modernFile();
    const CommandResult result =
        runWith({text("--exact"), text("--set"), text("ModernENEX=YES"), modern});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains(text("--exact and --set ModernENEX exclude each other.")));
}

TEST_F(ModernFilesCommandTest, AClassicFileIsNothingToTalkAbout)
{
    const QString classic = file("Classic.enex", note("a"));
    const CommandResult result = runWith({classic});
    EXPECT_EQ(result.status, 0);
    EXPECT_FALSE(result.output.contains(text("ModernENEX")));
    EXPECT_FALSE(result.output.contains(text("Tasks")));
}

TEST_F(ModernFilesCommandTest, TheReportCountsOverAllRunsThatImported)
{
    const QString modern = modernFile();
    const QString held = file(
        "Held.enex", note("a", "<en-note>x<en-crypt>y</en-crypt></en-note>",
                          "<resource><data encoding=\"base64\">QQ==</data></resource>") +
                         note("b", "<en-note><a href=\"evernote:///view/1/\">c</a></en-note>"));
    const QString broken = file("Broken.enex", "<note><task/>");
    EXPECT_EQ(runWith({modern, held, broken}).status, 1);
    EXPECT_EQ(report().value(text("encryptedPassages")).toInt(), 1);
    EXPECT_EQ(report().value(text("resources")).toObject().value(text("leftOut")).toInt(), 1);
    EXPECT_EQ(report().value(text("links")).toObject().value(text("asTheyWere")).toInt(), 1);
    EXPECT_EQ(tasks().value(text("count")).toInt(), 1);
}

TEST_F(ModernFilesCommandTest, AttachmentsThatNothingShowsAreKeptWhenThePersonWantsIt)
{
    const QString held =
        file("Held.enex", note("a", "<en-note>x</en-note>",
                               "<resource><data encoding=\"base64\">QQ==</data></resource>"));
    const CommandResult result =
        runWith({text("--set"), text("KeepUnreferencedAttachments=YES"), held});
    EXPECT_TRUE(result.output.contains(text("Attachments: 1 (1 kept at the end of their notes).")));
    EXPECT_EQ(report().value(text("resources")).toObject().value(text("kept")).toInt(), 1);
}
