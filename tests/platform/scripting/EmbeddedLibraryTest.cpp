// SPDX-License-Identifier: MIT
#include "platform/scripting/EmbeddedLibrary.h"

#include "platform/defaults/UserDefaults.h"

#include <QDir>

namespace {

using platform::UserDefaults;

class EmbeddedLibraryTest : public ::testing::Test {
protected:
    void TearDown() override { UserDefaults::standard().clearOverrides(); }
};

TEST_F(EmbeddedLibraryTest, ItIsAFolderInTheDocumentsUnlessTheSettingNamesAnother)
{
    const QString documents = QDir::homePath() + QStringLiteral("/Documents/Quillery Library");
    EXPECT_EQ(platform::defaultEmbeddedLibraryFolder(), documents);
    EXPECT_EQ(platform::embeddedLibraryFolder(), documents);
    UserDefaults::standard().setOverride(platform::embeddedLibrarySetting,
                                         QStringLiteral("/elsewhere"));
    EXPECT_EQ(platform::embeddedLibraryFolder(), QStringLiteral("/elsewhere"));
    EXPECT_EQ(platform::defaultEmbeddedLibraryFolder(), documents);
}

TEST_F(EmbeddedLibraryTest, AnEmptySettingIsNone)
{
    UserDefaults::standard().setOverride(platform::embeddedLibrarySetting, QString());
    EXPECT_EQ(platform::embeddedLibraryFolder(), platform::defaultEmbeddedLibraryFolder());
}

} // namespace
