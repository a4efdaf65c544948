// SPDX-License-Identifier: MIT
#include "enex/EnexCensus.h"

#include "platform/xml/InputStream.h"
#include "platform/xml/XMLParser.h"

#include "support/QtPrinting.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Every test runs with the usual chunks and with chunks of one byte.
class EnexCensusTest : public ::testing::TestWithParam<qsizetype> {
protected:
    const EnexCensus& census(const QByteArray& file,
                             EnexCensus::Titles titles = EnexCensus::Titles::Skip)
    {
        m_census = std::make_unique<EnexCensus>(titles);
        const auto input = platform::InputStream::inputStreamWithData(file);
        platform::XMLParser parser(*input, GetParam());
        parser.setDelegate(m_census.get());
        EXPECT_TRUE(parser.parse());
        return *m_census;
    }

    ModernFileSigns signs(const QByteArray& notes)
    {
        return census("<en-export>" + notes + "</en-export>").signs();
    }

    bool isLinkable(const char* title)
    {
        return m_census->linkTargets()->identifierForTitle(text(title)).has_value();
    }

    std::unique_ptr<EnexCensus> m_census;
};

INSTANTIATE_TEST_SUITE_P(Chunks, EnexCensusTest, ::testing::Values(64 * 1024, 1),
                         [](const auto& chunk) { return chunk.param == 1 ? "OneByte" : "Usual"; });

TEST_P(EnexCensusTest, AClassicFileShowsNoSigns)
{
    const ModernFileSigns found =
        census("<en-export application=\"Evernote\" version=\"Evernote Mac 7.14 (458244)\">\n"
               "<note><title> a b </title><content> <![CDATA[ <en-note/> ]]> </content><tag/>"
               "<resource>\n<data "
               "encoding=\"base64\">\nQQ==\n</data>\n</resource></note>\n</en-export>")
            .signs();
    EXPECT_FALSE(found.isModern());
    EXPECT_FALSE(found.losesWhenReadAsWritten());
}

TEST_P(EnexCensusTest, WhiteSpaceBetweenTheElementsOfANoteIsASign)
{
    EXPECT_TRUE(signs("<note>\n<title>a</title></note>").hasWhiteSpaceInNotes);
    EXPECT_TRUE(
        signs("<note><title>a</title></note><note><title>a</title> </note>").hasWhiteSpaceInNotes);
    EXPECT_TRUE(signs("<note><title>a</title> </note>").isModern());
}

TEST_P(EnexCensusTest, WhiteSpaceDoesHarmBehindDatesAndTagsAlone)
{
    for (const QByteArray element : {"created", "updated", "tag"}) {
        EXPECT_TRUE(signs("<note> <title>a</title> <" + element + ">x</" + element + "> </note>")
                        .losesWhenReadAsWritten())
            << element.toStdString();
    }
    for (const QByteArray element : {"title", "content", "note-attributes", "resource"}) {
        const ModernFileSigns found =
            signs("<note><created>x</created><" + element + "> <tag/></" + element + "> </note>");
        EXPECT_TRUE(found.isModern()) << element.toStdString();
        EXPECT_FALSE(found.losesWhenReadAsWritten()) << element.toStdString();
    }
    EXPECT_FALSE(
        signs("<note><tag>x</tag></note><note> <title>a</title></note>").losesWhenReadAsWritten());
}

TEST_P(EnexCensusTest, TasksAreASignAndAreCounted)
{
    EXPECT_EQ(signs("<note><task><title>t</title></task><task/></note><note><task/></note>").tasks,
              3u);
    EXPECT_EQ(signs("<note><other><task/></other></note><task/>").tasks, 0u);
    EXPECT_TRUE(signs("<note><task/></note>").losesWhenReadAsWritten());
}

TEST_P(EnexCensusTest, TheHeaderOfVersionTenAndLaterIsASign)
{
    const auto isModern = [this](const QByteArray& attributes) {
        const ModernFileSigns found =
            census("<en-export " + attributes + "><note/></en-export>").signs();
        EXPECT_FALSE(found.losesWhenReadAsWritten());
        return found.isModern();
    };
    EXPECT_TRUE(isModern("export-date=\"x\" application=\"Evernote\" version=\"10.59.5\""));
    EXPECT_TRUE(isModern("application=\"Evernote\" version=\"11.0\""));
    EXPECT_FALSE(isModern("application=\"Evernote\" version=\"9.9\""));
    EXPECT_FALSE(isModern("application=\"Evernote\" version=\"Evernote Mac 7.5 (457109)\""));
    EXPECT_FALSE(isModern("application=\"Evernote/Windows\" version=\"6.x\""));
    EXPECT_FALSE(isModern("application=\"Another\" version=\"12\""));
    EXPECT_FALSE(isModern(""));
}

TEST_P(EnexCensusTest, TitlesAreCollectedOnlyWhenAskedFor)
{
    EXPECT_FALSE(census("<e><note><title>a</title></note></e>").linkTargets());
    census("<e><note><title> a&amp;\n b </title></note><note><title>c</title></note></e>",
           EnexCensus::Titles::Modern);
    EXPECT_TRUE(isLinkable("a& b"));
    EXPECT_TRUE(isLinkable("c"));
    EXPECT_FALSE(isLinkable("d"));
}

TEST_P(EnexCensusTest, TheTitleOfATaskIsItsNotesOnlyWhereTheFileIsReadAsItStands)
{
    const QByteArray file = "<e><note>\n<title>a</title>\n<task>\n<title>t</title>\n</task></note>"
                            "<note><title>b<![CDATA[c]]></title></note></e>";
    census(file, EnexCensus::Titles::Modern);
    EXPECT_TRUE(isLinkable("a"));
    EXPECT_FALSE(isLinkable("t"));
    EXPECT_TRUE(isLinkable("bc"));
    census(file, EnexCensus::Titles::AsWritten);
    EXPECT_FALSE(isLinkable("a"));
    EXPECT_TRUE(isLinkable("a t"));
    EXPECT_TRUE(isLinkable("b"));
}

TEST_P(EnexCensusTest, AnEndlessTitleIsNobodys)
{
    const QByteArray longTitle(GetParam() == 1 ? 20'000 : 2'000'000, 'x');
    census("<e><note><title>" + longTitle + "</title></note><note><title>b</title></note></e>",
           EnexCensus::Titles::Modern);
    EXPECT_FALSE(isLinkable(longTitle.constData()));
    EXPECT_FALSE(isLinkable(longTitle.first(NoteLinkTargets::longestTitle).constData()));
    EXPECT_TRUE(isLinkable("b"));
}

TEST(EnexHeaderTest, ALookAtTheHeaderReadsNothingElse)
{
    const test::ScratchFolder folder;
    const QByteArray broken = "><note></broken";
    const auto isModern = [&](const QByteArray& file) {
        return EnexCensus::hasModernHeader(folder.write(text("a.enex"), file));
    };
    EXPECT_TRUE(isModern("<?xml version=\"1.0\"?><!DOCTYPE en-export SYSTEM \"x\"><en-export "
                         "application=\"Evernote\" "
                         "version=\"10.1\"" +
                         broken));
    EXPECT_FALSE(
        isModern("<en-export application=\"Evernote\" version=\"Evernote Mac 7\"" + broken));
    EXPECT_FALSE(isModern("<other application=\"Evernote\" version=\"10.1\"" + broken));
    EXPECT_FALSE(isModern("no markup"));
    EXPECT_FALSE(EnexCensus::hasModernHeader(text("/nowhere/at/all.enex")));
    EXPECT_FALSE(EnexCensus::hasModernHeader(QString()));
}

TEST(NoteLinkTargetsTest, OnlyATitleOfOneNoteHasAnIdentifier)
{
    NoteLinkTargets targets;
    for (const char* title : {"a", "b", "b", "b", "", " "})
        targets.addNote(text(title));
    const auto identifier = targets.identifierForTitle(text("\n a "));
    ASSERT_TRUE(identifier);
    EXPECT_EQ(identifier->size(), 36);
    EXPECT_EQ(*identifier, identifier->toUpper());
    EXPECT_EQ(targets.identifierForTitle(text("a")), identifier);
    EXPECT_FALSE(targets.identifierForTitle(text("b")));
    EXPECT_FALSE(targets.identifierForTitle(text("c")));
    EXPECT_FALSE(targets.identifierForTitle(QString()));
}

} // namespace
