// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryFilesFolder.h"

#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/LaidOutFiles.h"
#include "platform/scripting/QuilleryLibraryError.h"

namespace {

using platform::Error;
using platform::QuilleryApplication;
using platform::QuilleryFilesFolder;

class QuilleryFilesFolderTest : public ::testing::Test {
protected:
    bool import(const QStringList& paths)
    {
        return m_quillery.importFiles(paths, QuilleryApplication::ImportMode::Copy, {}, 0, {}, 0, {},
                                      &m_error);
    }
    void expectRefusal(const QString& path)
    {
        m_error = Error();
        EXPECT_FALSE(import({path})) << qPrintable(path);
        EXPECT_EQ(m_error.domain(), QString::fromLatin1(platform::quilleryLibraryErrorDomain));
        EXPECT_EQ(m_error.code(),
                  static_cast<qint64>(platform::QuilleryLibraryErrorCode::IncompleteManifest));
        EXPECT_TRUE(m_error.localizedDescription().contains(path));
        EXPECT_TRUE(m_error.underlyingError());
        EXPECT_TRUE(m_quillery.manifestPaths().isEmpty());
    }

    const test::ScratchFolder m_scratch;
    QuilleryFilesFolder m_quillery;
    Error m_error;
};

TEST_F(QuilleryFilesFolderTest, RemembersTheManifestsAndLeavesThemWhereTheyAre)
{
    test::LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(QStringLiteral("One"));
    files.writeManifest();
    const QStringList before = m_scratch.tree();
    m_quillery.activate();
    EXPECT_EQ(m_quillery.version(), QStringLiteral("3.5.3"));
    EXPECT_TRUE(import({files.manifestPath()}));
    EXPECT_EQ(m_quillery.manifestPaths(), QStringList{files.manifestPath()});
    EXPECT_EQ(m_scratch.tree(), before);
    EXPECT_TRUE(m_error.isNull());
}

TEST_F(QuilleryFilesFolderTest, AManifestThatIsNotThereIsRefused)
{
    expectRefusal(m_scratch.filePath("Evernote.qllibxml"));
}

TEST_F(QuilleryFilesFolderTest, AManifestThatDoesNotReachToItsEndIsRefused)
{
    expectRefusal(m_scratch.write(QStringLiteral("empty.qllibxml"), ""));
    expectRefusal(m_scratch.write(QStringLiteral("cut.qllibxml"), "<plist><dict></dict></pli"));
    expectRefusal(
        m_scratch.write(QStringLiteral("zeros.qllibxml"), "<plist></plist>" + QByteArray(4096, '\0')));
    EXPECT_TRUE(import({m_scratch.write(QStringLiteral("whole.qllibxml"), "<plist></plist>\n\n")}));
}

TEST_F(QuilleryFilesFolderTest, WhatIsNoRegularFileIsRefused)
{
    const QString whole = m_scratch.write(QStringLiteral("whole.qllibxml"), "<plist></plist>");
    const QString link = m_scratch.filePath("link.qllibxml");
    ASSERT_TRUE(QFile::link(whole, link));
    expectRefusal(link);
    expectRefusal(m_scratch.path());
}

TEST_F(QuilleryFilesFolderTest, OfSeveralManifestsNoneIsTakenWhenOneIsNotWhole)
{
    const QString whole = m_scratch.write(QStringLiteral("whole.qllibxml"), "<plist></plist>");
    EXPECT_FALSE(import({whole, m_scratch.filePath("none")}));
    EXPECT_TRUE(m_quillery.manifestPaths().isEmpty());
}

} // namespace
