// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusConnection.h"
#include "platform/dbus/CallLimits.h"
#include "platform/dbus/ScriptingError.h"
#include "support/PrivateBus.h"

#include <QJsonObject>

#include <functional>

namespace test {

[[nodiscard]] inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

using Code = platform::ScriptingErrorCode;

// Code of an error of the bridge, by which failing tests tell it; "none" and other domains by name.
[[nodiscard]] std::string codeOf(const std::optional<platform::Error>& error);
[[nodiscard]] std::string nameOf(Code code);

// A bus and the programs that a test starts on it.
class BusTest : public ::testing::Test {
protected:
    void SetUp() override { m_bus.start(); }
    void TearDown() override;

    // Starts the service program; returns when it owns its name.
    QProcess& startService(const QStringList& arguments);
    // Returns when it has printed the line, such as the method of a call that it leaves unanswered.
    static void waitForLine(QProcess& service, const QString& line);
    // Kills it; returns when the bus knows.
    void killService(QProcess& service, const QString& name);

    [[nodiscard]] std::shared_ptr<platform::BusConnection> connect() const;
    // Waits until a condition holds, in the event loop of nobody.
    [[nodiscard]] static bool waitUntil(const std::function<bool()>& condition);
    // What the service wrote down with --record.
    [[nodiscard]] QList<QJsonObject> record() const;
    [[nodiscard]] QString recordFile() const { return m_folder.filePath("record"); }

    PrivateBus m_bus;
    ScratchFolder m_folder;
    std::vector<std::unique_ptr<QProcess>> m_services;
};

// Short calls end soon, for services that never answer.
[[nodiscard]] platform::CallLimits impatient();

} // namespace test
