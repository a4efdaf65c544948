// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/SystemLog.h"
#include "webcapture/EvernoteWebConversionOperation.h"

#include "platform/webview/HttpTestServer.h"
#include "support/ScratchFolder.h"

// Converts pages as a run does: a thread waits while the test's event loop loads them.
class CaptureTest : public ::testing::Test {
protected:
    using Operation = std::shared_ptr<EvernoteWebConversionOperation>;

    void TearDown() override;

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    [[nodiscard]] static Operation operationFor(const QUrl& url);
    // Returns when it has finished and its view is gone.
    static void run(const Operation& operation);
    Operation convert(const QUrl& url)
    {
        const Operation operation = operationFor(url);
        run(operation);
        return operation;
    }
    // Runs the event loop until the condition holds; fails the test after a minute.
    static void waitUntil(const std::function<bool()>& condition);

    // The finished archive; empty, and the test fails, when there is none.
    static QVariantMap archiveOf(const Operation& operation);
    static QVariantMap mainResource(const QVariantMap& archive);
    static QList<QVariantMap> subresources(const QVariantMap& archive);
    static QList<QVariantMap> subframes(const QVariantMap& archive);
    static QByteArray bytes(const QVariantMap& resource)
    {
        return resource.value(text("WebResourceData")).toByteArray();
    }
    // The addresses of the sub-resources without their server.
    [[nodiscard]] QStringList paths(const QVariantMap& archive) const;

    test::HttpTestServer m_server;
    test::ScratchFolder m_folder;
    QStringList m_systemLog;

private:
    platform::SystemLogObserver m_observer{[this](const QString& message) {
        m_systemLog += message;
    }};
};
