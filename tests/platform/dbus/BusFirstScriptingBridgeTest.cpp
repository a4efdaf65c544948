// SPDX-License-Identifier: MIT
#include "platform/dbus/BusFirstScriptingBridge.h"

#include "BusFixture.h"
#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"
#include "platform/scripting/QuilleryFilesFolder.h"
#include "platform/scripting/QuilleryIdentifiers.h"

namespace {

using platform::BusFirstScriptingBridge;
using platform::DBusScriptingBridge;
using test::text;
namespace quillery = platform::quillery;

class BusFirstScriptingBridgeTest : public test::BusTest {
protected:
    void SetUp() override {}

    [[nodiscard]] BusFirstScriptingBridge*
    bridge(const std::shared_ptr<platform::BusConnection>& bus)
    {
        m_bridge = std::make_unique<BusFirstScriptingBridge>(
            std::make_shared<DBusScriptingBridge>(bus),
            std::make_shared<platform::EmbeddedScriptingBridge>(m_embedded));
        return m_bridge.get();
    }

    const std::shared_ptr<platform::QuilleryFilesFolder> m_embedded =
        std::make_shared<platform::QuilleryFilesFolder>();
    std::unique_ptr<BusFirstScriptingBridge> m_bridge;
};

TEST_F(BusFirstScriptingBridgeTest, WithoutABusItIsTheEmbeddedOne)
{
    auto* const found = bridge(std::make_shared<platform::BusConnection>(text("disabled:")));
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->installedQuillery(quillery::identifier), m_embedded);
    EXPECT_EQ(found->installedQuillery(quillery::storeIdentifier), nullptr);
    EXPECT_EQ(found->lastQuilleryOnBus(), nullptr);
}

TEST_F(BusFirstScriptingBridgeTest, WithoutQuilleryOnTheBusItIsTheEmbeddedOne)
{
    m_bus.start();
    startService({text("evernote"), m_folder.path()});
    auto* const found = bridge(connect());
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->runningQuillery(quillery::identifier), nullptr);
    EXPECT_EQ(found->installedQuillery(quillery::identifier), m_embedded);
}

TEST_F(BusFirstScriptingBridgeTest, AQuilleryThatRunsIsAsked)
{
    m_bus.start();
    startService({text("quillery")});
    auto* const found = bridge(connect());
    EXPECT_TRUE(found->isRunning(quillery::identifier));
    const auto application = found->runningQuillery(quillery::identifier);
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application, found->lastQuilleryOnBus());
}

TEST_F(BusFirstScriptingBridgeTest, AQuilleryThatCanBeStartedIsAsked)
{
    m_bus.addService(quillery::identifier, {text(SCRIPTING_SERVICE), text("quillery")});
    m_bus.start();
    auto* const found = bridge(connect());
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    const auto application = found->installedQuillery(quillery::identifier);
    ASSERT_NE(application, nullptr);
    EXPECT_NE(application, m_embedded);
    EXPECT_EQ(application->version(), "3.5.3");
}

TEST_F(BusFirstScriptingBridgeTest, TheStoresEditionOnTheBusComesBeforeTheEmbeddedOne)
{
    m_bus.start();
    startService({text("quillery"), text("--name"), quillery::storeIdentifier});
    auto* const found = bridge(connect());
    EXPECT_EQ(found->installedQuillery(quillery::identifier), nullptr);
    EXPECT_NE(found->installedQuillery(quillery::storeIdentifier), nullptr);
}

TEST_F(BusFirstScriptingBridgeTest, ARunThatBeganWithTheBusNeverEndsInTheEmbeddedOne)
{
    m_bus.start();
    QProcess& service = startService({text("quillery")});
    auto* const found = bridge(connect());
    ASSERT_TRUE(found->isRunning(quillery::identifier));
    killService(service, quillery::identifier);
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->installedQuillery(quillery::identifier), nullptr);
}

TEST_F(BusFirstScriptingBridgeTest, ARunThatBeganWithTheEmbeddedOneStaysThere)
{
    m_bus.start();
    auto* const found = bridge(connect());
    ASSERT_FALSE(found->isRunning(quillery::identifier));
    startService({text("quillery")});
    EXPECT_FALSE(found->isRunning(quillery::identifier));
    EXPECT_EQ(found->installedQuillery(quillery::identifier), m_embedded);
}

} // namespace
