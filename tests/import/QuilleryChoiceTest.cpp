// SPDX-License-Identifier: MIT
#include "import/ScriptedRun.h"

namespace {

using platform::Error;
using ::testing::ElementsAre;

class QuilleryChoiceTest : public ScriptedRunTest {};

TEST_F(QuilleryChoiceTest, AnEarlierVersionThanThreeIsRefused)
{
    useQuillery("2.9");
    EXPECT_FALSE(m_run->getQuilleryApplicationBundleIdentifier(&m_error));
    EXPECT_EQ(m_error,
              Error(text("EvernoteExport"), 10002, text("Quillery 3.5 or later is required.")));
    EXPECT_EQ(m_run->quilleryApp(), nullptr);
}

TEST_F(QuilleryChoiceTest, EveryVersionFromThreeOnIsAccepted)
{
    for (const char* version :
         {"3.0", "3.4", "3.4.9", "3.5", "3.5.0", "3.5.3", "3.6", "4.0", "10.1", "3.x", "3.5b2"}) {
        useQuillery(version);
        EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(&m_error),
                  platform::quillery::identifier)
            << version;
    }
}

TEST_F(QuilleryChoiceTest, AVersionThatCannotBeCheckedIsRefused)
{
    for (const char* version : {"", "3", "three", "2.0", "x.9", "3.5.-1"}) {
        useQuillery(version);
        EXPECT_FALSE(m_run->getQuilleryApplicationBundleIdentifier(&m_error)) << version;
        EXPECT_EQ(m_error.code(), 10002) << version;
    }
}

TEST_F(QuilleryChoiceTest, WithoutQuilleryThereIsNoRun)
{
    m_bridge->installed.clear();
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10003")));
    EXPECT_EQ(m_delegate.errors[0],
              Error(text("EvernoteExport"), 10003, text("Quillery app not found.")));
    EXPECT_FALSE(QFileInfo::exists(filesPath()));
    EXPECT_FALSE(QFileInfo::exists(logPath()));
}

TEST_F(QuilleryChoiceTest, WithAQuilleryThatIsTooOldNothingIsWritten)
{
    useQuillery("2.9");
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10002")));
    EXPECT_FALSE(QFileInfo::exists(filesPath()));
    EXPECT_FALSE(QFileInfo::exists(logPath()));
}

TEST_F(QuilleryChoiceTest, ARunningEditionWinsAndTheDirectOneFirst)
{
    const auto direct = std::make_shared<RecordingQuillery>();
    const auto store = std::make_shared<RecordingQuillery>();
    m_bridge->running = {{platform::quillery::identifier, direct},
                         {platform::quillery::storeIdentifier, store}};
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::identifier);
    EXPECT_EQ(m_run->quilleryApp(), direct);
    m_bridge->running.remove(platform::quillery::identifier);
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::storeIdentifier);
    EXPECT_EQ(m_run->quilleryApp(), store);
}

TEST_F(QuilleryChoiceTest, WhereNoneRunsTheInstalledEditionIsUsedTheDirectOneFirst)
{
    const auto store = std::make_shared<RecordingQuillery>();
    m_bridge->installed.insert(platform::quillery::storeIdentifier, store);
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::identifier);
    m_bridge->installed.remove(platform::quillery::identifier);
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::storeIdentifier);
    EXPECT_EQ(m_run->quilleryApp(), store);
}

TEST_F(QuilleryChoiceTest, ARunningEditionThatCannotBeReachedEndsTheLookAmongRunningOnes)
{
    m_bridge->running = {
        {platform::quillery::identifier, nullptr},
        {platform::quillery::storeIdentifier, std::make_shared<RecordingQuillery>()}};
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::identifier);
    EXPECT_EQ(m_run->quilleryApp(), m_quillery);
}

} // namespace
