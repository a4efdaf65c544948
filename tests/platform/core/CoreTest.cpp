// SPDX-License-Identifier: MIT
#include "platform/core/Bundle.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/SystemLog.h"
#include "platform/core/Uuid.h"

#include "support/ScratchFolder.h"

#include <QRegularExpression>

namespace {

TEST(UuidTest, IsUpperCaseHyphenatedAndFresh)
{
    const QString uuid = platform::newUuidString();
    const QRegularExpression form(QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(form.match(uuid).hasMatch()) << qPrintable(uuid);
    EXPECT_NE(uuid, platform::newUuidString());
}

TEST(LocalizedStringsTest, FallsBackToTheEnglishText)
{
    EXPECT_EQ(platform::localizedString("No table has this text."), QStringLiteral("No table has this text."));
    EXPECT_EQ(platform::localizedString(QStringLiteral("Nor \u201cthis\u201d.")), QStringLiteral("Nor \u201cthis\u201d."));
}

TEST(SystemLogTest, ObserversSeeMessagesWhileTheyLive)
{
    QStringList seen;
    {
        const platform::SystemLogObserver observer([&](const QString& message) { seen += message; });
        platform::systemLog(QStringLiteral("first"));
    }
    platform::systemLog(QStringLiteral("second"));
    EXPECT_EQ(seen, QStringList{QStringLiteral("first")});
}

TEST(BundleTest, AResourceFolderIsLookedAtBeforeTheCompiledResources)
{
    const test::ScratchFolder scratch;
    const QString path = scratch.write(QStringLiteral("Own.txt"), "text");
    platform::Bundle bundle;
    EXPECT_FALSE(bundle.pathForResource(QStringLiteral("Own"), QStringLiteral("txt")));
    bundle.setResourceDirectory(scratch.path());
    EXPECT_EQ(bundle.pathForResource(QStringLiteral("Own"), QStringLiteral("txt")), path);
    EXPECT_FALSE(bundle.pathForResource(QStringLiteral("Other"), QStringLiteral("txt")));
}

TEST(BundleTest, VersionHasThreeNumbers)
{
    EXPECT_EQ(platform::Bundle::main().shortVersionString().count(QLatin1Char('.')), 2);
}

} // namespace
