// SPDX-License-Identifier: MIT
#include "platform/scripting/EmbeddedScriptingBridge.h"

#include "platform/scripting/QuilleryFilesFolder.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryFolder.h"

namespace {

using platform::EmbeddedScriptingBridge;
using platform::QuilleryApplication;
using platform::QuilleryFilesFolder;

TEST(EmbeddedScriptingBridgeTest, OffersItsApplicationAsInstalledUnderTheFirstIdentifierOnly)
{
    const auto application = std::make_shared<QuilleryFilesFolder>();
    EmbeddedScriptingBridge bridge(application);
    for (const QString& identifier : {platform::quillery::identifier, platform::quillery::storeIdentifier}) {
        EXPECT_FALSE(bridge.isRunning(identifier));
        EXPECT_FALSE(bridge.runningQuillery(identifier));
    }
    EXPECT_EQ(bridge.installedQuillery(platform::quillery::identifier), application);
    EXPECT_FALSE(bridge.installedQuillery(platform::quillery::storeIdentifier));
}

TEST(EmbeddedScriptingBridgeTest, WithoutAnApplicationNoneIsInstalled)
{
    EmbeddedScriptingBridge bridge(nullptr);
    EXPECT_FALSE(bridge.installedQuillery(platform::quillery::identifier));
}

TEST(QuilleryLibraryFolderVersionTest, ReportsAVersionThatTheImporterAccepts)
{
    EXPECT_EQ(platform::QuilleryLibraryFolder(QStringLiteral("/nowhere")).version(), QStringLiteral("3.5.3"));
}

} // namespace
