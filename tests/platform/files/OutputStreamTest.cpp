// SPDX-License-Identifier: MIT
#include "platform/files/OutputStream.h"

#include "platform/files/FileManager.h"

#include "support/ScratchFolder.h"

#include <thread>

namespace {

using platform::OutputStream;

class OutputStreamTest : public ::testing::Test {
protected:
    test::ScratchFolder m_scratch;
    QString m_path = m_scratch.filePath("log");
};

TEST_F(OutputStreamTest, AppendsOrOverwrites)
{
    m_scratch.write(QStringLiteral("log"), "old ");
    OutputStream appending(m_path, OutputStream::Mode::Append);
    ASSERT_TRUE(appending.open());
    EXPECT_EQ(appending.write("new", 3), 3);
    appending.close();
    EXPECT_EQ(m_scratch.read(QStringLiteral("log")), "old new");
    OutputStream overwriting(m_path, OutputStream::Mode::Overwrite);
    ASSERT_TRUE(overwriting.open());
    EXPECT_EQ(overwriting.write("x", 1), 1);
    EXPECT_EQ(m_scratch.read(QStringLiteral("log")), "x");
}

TEST_F(OutputStreamTest, WritesNoMoreThanTheMaximumLengthAndNoMoreThanThereIs)
{
    OutputStream stream(m_path, OutputStream::Mode::Append);
    ASSERT_TRUE(stream.open());
    EXPECT_EQ(stream.write("abcdef", 3), 3);
    EXPECT_EQ(stream.write("xy", 100), 2);
    EXPECT_EQ(stream.write("z", -1), -1);
    EXPECT_EQ(m_scratch.read(QStringLiteral("log")), "abcxy");
}

TEST_F(OutputStreamTest, WritesNothingBeforeItIsOpenAndAfterItIsClosed)
{
    OutputStream stream(m_path, OutputStream::Mode::Append);
    EXPECT_EQ(stream.write("x", 1), -1);
    EXPECT_TRUE(m_scratch.tree().isEmpty());
    ASSERT_TRUE(stream.open());
    stream.close();
    EXPECT_FALSE(stream.isOpen());
    EXPECT_EQ(stream.write("x", 1), -1);
    EXPECT_EQ(m_scratch.read(QStringLiteral("log")), "");
}

TEST_F(OutputStreamTest, TellsWhyItCannotBeOpened)
{
    OutputStream stream(m_scratch.filePath("none/log"), OutputStream::Mode::Append);
    platform::Error error;
    EXPECT_FALSE(stream.open(&error));
    EXPECT_EQ(error.code(), platform::FileNoSuchFileError);
    EXPECT_TRUE(error.localizedDescription().contains(stream.path()));
}

TEST_F(OutputStreamTest, LinesOfSeveralThreadsStayWhole)
{
    OutputStream stream(m_path, OutputStream::Mode::Append);
    ASSERT_TRUE(stream.open());
    const auto writeLines = [&](char letter) {
        const QByteArray line = QByteArray(200, letter) + '\n';
        for (int count = 0; count < 200; ++count)
            EXPECT_EQ(stream.write(line, line.size()), line.size());
    };
    std::thread first(writeLines, 'a');
    std::thread second(writeLines, 'b');
    first.join();
    second.join();
    const QList<QByteArray> lines = m_scratch.read(QStringLiteral("log")).split('\n');
    EXPECT_EQ(lines.size(), 401);
    for (const QByteArray& line : lines)
        EXPECT_EQ(line.count(line.isEmpty() ? 'a' : line[0]), line.size());
}

} // namespace
