// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusScriptingBridge.h"

#include "BusFixture.h"
#include "platform/dbus/BusInterface.h"
#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/scripting/QuilleryIdentifiers.h"

namespace {

using platform::DBusScriptingBridge;
using test::codeOf;
using test::text;
namespace quillery = platform::quillery;

// Starts its bus itself, because what can be started must be known to it beforehand.
class DBusScriptingBridgeTest : public test::BusTest {
protected:
    void SetUp() override {}

    void startBus() { BusTest::SetUp(); }
    [[nodiscard]] std::unique_ptr<DBusScriptingBridge>
    bridge(const platform::CallLimits& limits = {}) const
    {
        return std::make_unique<DBusScriptingBridge>(connect(), limits);
    }
    [[nodiscard]] static std::string versionError(platform::QuilleryApplication& application)
    {
        EXPECT_TRUE(application.version().isNull());
        return codeOf(application.lastError());
    }
};

TEST_F(DBusScriptingBridgeTest, OnAnEmptyBusNothingRunsOrIsInstalled)
{
    startBus();
    const auto found = bridge();
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->runningQuillery(quillery::identifier), nullptr);
    EXPECT_EQ(found->installedQuillery(quillery::identifier), nullptr);
    EXPECT_FALSE(found->hasQuillery());
    EXPECT_EQ(found->installedEvernote(), nullptr);
    EXPECT_EQ(found->lastQuillery(), nullptr);
}

TEST_F(DBusScriptingBridgeTest, WithoutABusNothingRunsOrIsInstalled)
{
    DBusScriptingBridge found(std::make_shared<platform::BusConnection>(text("disabled:")));
    EXPECT_FALSE(found.isRunning(quillery::identifier));
    EXPECT_FALSE(found.hasQuillery());
    EXPECT_EQ(found.installedQuillery(quillery::identifier), nullptr);
    EXPECT_EQ(found.installedEvernote(), nullptr);
}

TEST_F(DBusScriptingBridgeTest, WhatOwnsItsNameRunsAndIsInstalled)
{
    startBus();
    startService({text("quillery"), text("--name"), quillery::storeIdentifier});
    startService({text("evernote"), m_folder.path()});
    const auto found = bridge();
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->installedQuillery(quillery::identifier), nullptr);
    EXPECT_TRUE(found->isRunning(quillery::storeIdentifier));
    EXPECT_TRUE(found->hasQuillery());
    const auto application = found->runningQuillery(quillery::storeIdentifier);
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_EQ(found->lastQuillery(), application);
    EXPECT_EQ(found->lastQuillery()->bundleIdentifier(), quillery::storeIdentifier);
    EXPECT_NE(found->installedQuillery(quillery::storeIdentifier), nullptr);
    const auto evernote = found->installedEvernote();
    ASSERT_NE(evernote, nullptr);
    EXPECT_EQ(evernote->version(), "10.2");
}

TEST_F(DBusScriptingBridgeTest, WhatTheBusCanStartIsInstalledAndStartedByTheFirstCall)
{
    m_bus.addService(quillery::identifier, {text(SCRIPTING_SERVICE), text("quillery")});
    m_bus.addService(platform::evernoteBundleIdentifier,
                     {text(SCRIPTING_SERVICE), text("evernote"), m_folder.path()});
    startBus();
    const auto found = bridge();
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->runningQuillery(quillery::identifier), nullptr);
    EXPECT_TRUE(found->hasQuillery());
    const auto application = found->installedQuillery(quillery::identifier);
    ASSERT_NE(application, nullptr);
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_TRUE(found->isRunning(quillery::identifier));
    const auto evernote = found->installedEvernote();
    ASSERT_NE(evernote, nullptr);
    EXPECT_EQ(evernote->version(), "10.2");
}

TEST_F(DBusScriptingBridgeTest, WhatEndedIsStartedAgainByTheNextCall)
{
    m_bus.addService(quillery::identifier,
                     {text(SCRIPTING_SERVICE), text("quillery"), text("--record"), recordFile(),
                      text("--die-after"), text("Activate")});
    startBus();
    const auto application = bridge()->installedQuillery(quillery::identifier);
    for (int count = 1; count <= 3; ++count) {
        application->activate();
        EXPECT_EQ(codeOf(application->lastError()), "none");
        ASSERT_TRUE(waitUntil([&] { return !bridge()->isRunning(quillery::identifier); }));
        EXPECT_EQ(record().size(), count);
    }
}

TEST_F(DBusScriptingBridgeTest, WhatCannotBeStartedSaysSo)
{
    m_bus.addService(quillery::identifier, {text("/bin/false")});
    m_bus.addService(quillery::storeIdentifier, {text("/no/such/program")});
    startBus();
    for (const QString& identifier : {quillery::identifier, quillery::storeIdentifier}) {
        const auto application = bridge()->installedQuillery(identifier);
        ASSERT_NE(application, nullptr);
        EXPECT_EQ(versionError(*application), "NotStarted");
    }
}

TEST_F(DBusScriptingBridgeTest, WhatNeverClaimsItsNameIsNotWaitedForWithoutEnd)
{
    m_bus.addService(quillery::identifier, {text("sleep"), text("60")});
    m_bus.setStartLimit(500);
    startBus();
    const auto byBus = bridge()->installedQuillery(quillery::identifier);
    EXPECT_EQ(versionError(*byBus), "NotStarted");
    platform::CallLimits limits;
    limits.start = 200;
    const auto byCaller = bridge(limits)->installedQuillery(quillery::identifier);
    EXPECT_EQ(versionError(*byCaller), "NotStarted");
}

TEST_F(DBusScriptingBridgeTest, WhenTheBusDiesNothingRunsAnyMore)
{
    startBus();
    startService({text("quillery")});
    const auto found = bridge();
    ASSERT_TRUE(found->hasQuillery());
    m_bus.kill();
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_FALSE(found->hasQuillery());
    EXPECT_EQ(found->installedQuillery(quillery::identifier), nullptr);
}

} // namespace
