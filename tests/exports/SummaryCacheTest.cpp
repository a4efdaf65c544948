// SPDX-License-Identifier: MIT
#include "exports/SummaryCache.h"

#include "platform/propertylist/PropertyList.h"
#include "support/ScratchFolder.h"

#include <QFileInfo>

namespace {

const QString file = QStringLiteral("/exports/a.enex");
const FileIdentity identity{1, 2, 3, 4, 5};
const NotebookSummary summary{42, QStringLiteral("Evernote"), QStringLiteral("10.2"), {}};

class SummaryCacheTest : public testing::Test {
protected:
    [[nodiscard]] QString path() const { return m_folder.filePath("deep/cache.plist"); }
    void save() const
    {
        SummaryCache cache(path());
        cache.insert(file, identity, summary);
        cache.save({file});
    }

    test::ScratchFolder m_folder;
};

TEST_F(SummaryCacheTest, WhatWasSavedIsKnownTheNextTime)
{
    save();
    EXPECT_EQ(SummaryCache(path()).summary(file, identity), summary);
    EXPECT_EQ(SummaryCache(path()).summary("/exports/b.enex", identity), std::nullopt);
}

TEST_F(SummaryCacheTest, AFileThatDiffersInAnythingIsNotTheSame)
{
    save();
    const SummaryCache cache(path());
    for (const FileIdentity& other :
         {FileIdentity{0, 2, 3, 4, 5}, FileIdentity{1, 0, 3, 4, 5}, FileIdentity{1, 2, 0, 4, 5},
          FileIdentity{1, 2, 3, 0, 5}, FileIdentity{1, 2, 3, 4, 0}})
        EXPECT_EQ(cache.summary(file, other), std::nullopt);
}

TEST_F(SummaryCacheTest, FilesThatAreGoneAreForgotten)
{
    save();
    SummaryCache cache(path());
    cache.save({"/exports/b.enex"});
    EXPECT_EQ(SummaryCache(path()).summary(file, identity), std::nullopt);
}

TEST_F(SummaryCacheTest, AProblemIsNotRemembered)
{
    SummaryCache cache(path());
    NotebookSummary withProblem = summary;
    withProblem.problem = platform::Error("Own", 1);
    cache.insert(file, identity, withProblem);
    EXPECT_EQ(cache.summary(file, identity), std::nullopt);
}

TEST_F(SummaryCacheTest, NothingIsWrittenWhenNothingHasChanged)
{
    save();
    QFile::remove(path());
    SummaryCache cache(path());
    cache.save({file});
    EXPECT_FALSE(QFileInfo::exists(path()));
}

TEST_F(SummaryCacheTest, ADamagedOrForeignCacheIsEmpty)
{
    for (const char* const data :
         {"", "garbage", "<plist><array/></plist>",
          "<plist><dict><key>Format</key><integer>99</integer></dict></plist>",
          "<plist><dict><key>Format</key><integer>1</integer><key>Files</key>"
          "<array/></dict></plist>"}) {
        m_folder.write("deep/cache.plist", data);
        SummaryCache cache(path());
        EXPECT_EQ(cache.summary(file, identity), std::nullopt) << data;
    }
    save();
    EXPECT_EQ(SummaryCache(path()).summary(file, identity), summary);
}

TEST_F(SummaryCacheTest, ACacheThatCannotBeWrittenCostsNothingElse)
{
    SummaryCache cache("/proc/none/cache.plist");
    cache.insert(file, identity, summary);
    cache.save({file});
    EXPECT_EQ(cache.summary(file, identity), summary);
}

TEST_F(SummaryCacheTest, EachFolderHasACacheOfItsOwnHoweverItIsNamed)
{
    QDir().mkpath(m_folder.filePath("a"));
    QDir().mkpath(m_folder.filePath("b"));
    QFile::link(m_folder.filePath("a"), m_folder.filePath("link"));
    const QString cacheOfA = SummaryCache::pathForFolder(m_folder.filePath("a"));
    EXPECT_EQ(SummaryCache::pathForFolder(m_folder.filePath("link/../a/")), cacheOfA);
    EXPECT_EQ(SummaryCache::pathForFolder(m_folder.filePath("link")), cacheOfA);
    EXPECT_NE(SummaryCache::pathForFolder(m_folder.filePath("b")), cacheOfA);
    EXPECT_TRUE(cacheOfA.startsWith(qEnvironmentVariable("XDG_CACHE_HOME") + "/"));
}

} // namespace
