// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLParseOperation.h"

#include "enex/ParseFixture.h"

#include <stdexcept>
#include <thread>

namespace {

using platform::Error;
using platform::manifest::makeRecord;
using platform::manifest::Record;
using ::testing::ElementsAre;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// How a parse ends, and what does not end it.
class ParseOperationEndTest : public ParseFixture {};

INSTANTIATE_TEST_SUITE_P(Chunks, ParseOperationEndTest, ::testing::Values(64 * 1024, 1),
                         [](const auto& chunk) { return chunk.param == 1 ? "OneByte" : "Usual"; });

TEST_P(ParseOperationEndTest, DataWithoutAnEncodingEndsTheFileAfterTheNotesBeforeIt)
{
    runNotes("<note><title>Before</title></note><note><resource><data>QUJD</data></resource></note>"
             "<note><title>After</title></note>");
    EXPECT_EQ(m_titlesInBlock, QStringList{text("Before")});
    ASSERT_EQ(m_completions.size(), 2u);
    EXPECT_EQ(m_completions[0]->domain(), text("EvernoteXMLParseOperationErrorDomain"));
    EXPECT_EQ(m_completions[0]->code(), 1003);
    EXPECT_EQ(m_completions[0]->localizedDescription(), text("Cannot parse \"(null)\" data."));
    EXPECT_EQ(m_completions[1]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_EQ(m_completions[1]->code(), 512);
    EXPECT_EQ(m_operation->operationError()->code(), 512);
}

TEST_P(ParseOperationEndTest, AnEncodingInAnotherCaseIsRefused)
{
    runNotes("<note><resource><data encoding=\"Base64\">QUJD</data></resource></note>");
    ASSERT_FALSE(m_completions.empty());
    EXPECT_EQ(m_completions[0]->code(), 1003);
    EXPECT_EQ(m_completions[0]->localizedDescription(), text("Cannot parse \"Base64\" data."));
    EXPECT_TRUE(m_records.empty());
}

TEST_P(ParseOperationEndTest, AnEmptyEncodingIsRefused)
{
    runNotes("<note><resource><data encoding=\"\">QUJD</data></resource></note>");
    ASSERT_FALSE(m_completions.empty());
    EXPECT_EQ(m_completions[0]->localizedDescription(), text("Cannot parse \"\" data."));
}

TEST_P(ParseOperationEndTest, AnExceptionSkipsThatNoteOnly)
{
    m_conversion = [](const QString& title, Error*) -> Record {
        if (title == text("Bad"))
            throw std::out_of_range("no such range");
        return makeRecord();
    };
    runNotes("<note><title>Bad</title></note><note><title>Good</title></note>");
    ASSERT_EQ(m_records.size(), 2u);
    EXPECT_EQ(m_records[0], nullptr);
    EXPECT_EQ(m_errors[0]->domain(), text("EvernoteXMLParseOperationErrorDomain"));
    EXPECT_EQ(m_errors[0]->code(), 1004);
    EXPECT_EQ(m_errors[0]->localizedDescription(), text("no such range"));
    EXPECT_NE(m_records[1], nullptr);
    EXPECT_FALSE(m_errors[1]);
    EXPECT_THAT(logLines(), ElementsAre(text("Converting \"Bad\""), text("Skipping \"Bad\""),
                                        text("Converting \"Good\"")));
    ASSERT_EQ(m_completions.size(), 1u);
    EXPECT_FALSE(m_completions[0]);
}

TEST_P(ParseOperationEndTest, AFailedConversionHandsItsErrorOnUnchanged)
{
    m_conversion = [](const QString&, Error* error) -> Record {
        platform::setError(error, Error(text("Own"), 7, text("own text")));
        return nullptr;
    };
    runNotes("<note><title>A</title></note><note><title>B</title></note>");
    ASSERT_EQ(m_errors.size(), 2u);
    EXPECT_EQ(m_errors[0], Error(text("Own"), 7, text("own text")));
    EXPECT_THAT(logLines(), ElementsAre(text("Converting \"A\""), text("Skipping \"A\""),
                                        text("Converting \"B\""), text("Skipping \"B\"")));
}

TEST_P(ParseOperationEndTest, NoRecordAndNoErrorAreHandedOnAsSuch)
{
    m_conversion = [](const QString&, Error*) -> Record {
        return nullptr;
    };
    runNotes("<note><title>A</title></note>");
    ASSERT_EQ(m_records.size(), 1u);
    EXPECT_EQ(m_records[0], nullptr);
    EXPECT_FALSE(m_errors[0]);
}

TEST_P(ParseOperationEndTest, CancellingInTheMiddleStopsAfterTheCurrentEvent)
{
    m_afterEachNote = [this] {
        m_operation->cancel();
    };
    runNotes("<note><title>One</title></note><note><title>Two</title></note>");
    EXPECT_EQ(m_titlesInBlock, QStringList{text("One")});
    ASSERT_EQ(m_completions.size(), 1u);
    EXPECT_EQ(m_completions[0]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_EQ(m_completions[0]->code(), 512);
    EXPECT_TRUE(m_operation->isCancelled());
}

TEST_P(ParseOperationEndTest, CancellingFromAnotherThreadEndsTheParse)
{
    m_afterEachNote = [this] {
        std::thread([this] { m_operation->cancel(); }).join();
    };
    runNotes("<note><title>One</title></note><note><title>Two</title></note>");
    EXPECT_EQ(m_titlesInBlock, QStringList{text("One")});
}

TEST_P(ParseOperationEndTest, CancelledBeforeItRunsItReadsNothing)
{
    prepare(QUrl::fromLocalFile(m_folder.write(text("a.enex"), "<en-export><note/></en-export>")));
    m_operation->cancel();
    m_operation->start();
    EXPECT_TRUE(m_records.empty());
    EXPECT_TRUE(m_operation->isFinished());
}

TEST_P(ParseOperationEndTest, MalformedXmlEndsTheFileWithTheReadersErrorTwice)
{
    run("<en-export><note><title>One</title></note><note><title>Broken</note></en-export>");
    EXPECT_EQ(m_titlesInBlock, QStringList{text("One")});
    ASSERT_EQ(m_completions.size(), 2u);
    EXPECT_EQ(m_completions[0]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_EQ(m_completions[1]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_TRUE(m_completions[0]->localizedDescription().contains(text("line 1")))
        << qPrintable(m_completions[0]->localizedDescription());
}

TEST_P(ParseOperationEndTest, AUrlThatIsNoFileCannotBecomeAStream)
{
    runFile(QUrl(text("http://example.org/a.enex")));
    ASSERT_EQ(m_completions.size(), 1u);
    EXPECT_EQ(m_completions[0]->domain(), text("EvernoteXMLParseOperationErrorDomain"));
    EXPECT_EQ(m_completions[0]->code(), 1001);
    EXPECT_EQ(m_completions[0]->localizedDescription(), text("Cannot create input stream."));
}

TEST_P(ParseOperationEndTest, WithoutAParserTheFileEndsWithAnError)
{
    class WithoutParser : public EvernoteXMLParseOperation {
        std::unique_ptr<platform::XMLParser> createParser(platform::InputStream&) override
        {
            return nullptr;
        }
    };
    WithoutParser operation;
    operation.setEvernoteFileURL(
        QUrl::fromLocalFile(m_folder.write(text("a.enex"), "<en-export><note/></en-export>")));
    std::vector<std::optional<Error>> completions;
    operation.setParseOperationCompletionBlock(
        [&](const std::optional<Error>& error) { completions.push_back(error); });
    operation.start();
    ASSERT_EQ(completions.size(), 1u);
    EXPECT_EQ(completions[0], Error(text("EvernoteXMLParseOperationErrorDomain"), 1002,
                                    text("Cannot create parser.")));
    EXPECT_EQ(operation.operationError(), completions[0]);
    EXPECT_TRUE(operation.operationFinished());
    EXPECT_FALSE(operation.operationExecuting());
}

TEST_P(ParseOperationEndTest, ANewOperationNamesNoFileAndSoHasNoStream)
{
    EvernoteXMLParseOperation operation;
    std::vector<std::optional<Error>> completions;
    operation.setParseOperationCompletionBlock(
        [&](const std::optional<Error>& error) { completions.push_back(error); });
    operation.start();
    ASSERT_EQ(completions.size(), 1u);
    EXPECT_EQ(completions[0]->code(), 1001);
}

TEST_P(ParseOperationEndTest, AMissingFileEndsWithTheReadersErrorThatNamesIt)
{
    runFile(QUrl::fromLocalFile(text("/nowhere/Notes.enex")));
    ASSERT_FALSE(m_completions.empty());
    EXPECT_EQ(m_completions.back()->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_TRUE(m_completions.back()->localizedDescription().contains(text("/nowhere/Notes.enex")));
}

} // namespace
