// SPDX-License-Identifier: MIT
#include "BusFixture.h"

#include <QDeadlineTimer>
#include <QJsonDocument>

#include <thread>

namespace test {

namespace {

// Milliseconds; generous, because others may want the processors too.
constexpr int patience = 60000;

} // namespace

std::string nameOf(Code code)
{
    switch (code) {
    case Code::NoBus:
        return "NoBus";
    case Code::BusLost:
        return "BusLost";
    case Code::NotInstalled:
        return "NotInstalled";
    case Code::NotStarted:
        return "NotStarted";
    case Code::Gone:
        return "Gone";
    case Code::NoAnswer:
        return "NoAnswer";
    case Code::InvalidAnswer:
        return "InvalidAnswer";
    case Code::NotUnderstood:
        return "NotUnderstood";
    case Code::Refused:
        return "Refused";
    case Code::UnsendableArgument:
        return "UnsendableArgument";
    }
    return "no such code";
}

std::string codeOf(const std::optional<platform::Error>& error)
{
    if (!error)
        return "none";
    if (error->domain() != QLatin1String(platform::scriptingErrorDomain))
        return error->description().toStdString();
    EXPECT_TRUE(error->hasLocalizedDescription());
    return nameOf(static_cast<Code>(error->code()));
}

void BusTest::TearDown()
{
    for (const auto& service : m_services) {
        service->kill();
        service->waitForFinished(patience);
    }
}

QProcess& BusTest::startService(const QStringList& arguments)
{
    m_services.push_back(std::make_unique<QProcess>());
    QProcess& service = *m_services.back();
    endWithTest(service);
    service.setProcessEnvironment(m_bus.environment());
    service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    service.start(text(SCRIPTING_SERVICE), arguments);
    waitForLine(service, text("ready"));
    return service;
}

void BusTest::waitForLine(QProcess& service, const QString& line)
{
    while (!service.canReadLine() && service.waitForReadyRead(patience)) {
    }
    EXPECT_EQ(QString::fromUtf8(service.readLine()).trimmed(), line);
}

void BusTest::killService(QProcess& service, const QString& name)
{
    service.kill();
    EXPECT_TRUE(service.waitForFinished(patience));
    const auto bus = connect();
    EXPECT_TRUE(waitUntil([&] { return !bus->owner(name); }));
}

std::shared_ptr<platform::BusConnection> BusTest::connect() const
{
    return std::make_shared<platform::BusConnection>(m_bus.address());
}

bool BusTest::waitUntil(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(patience);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

QList<QJsonObject> BusTest::record() const
{
    QList<QJsonObject> calls;
    QFile file(recordFile());
    if (!file.open(QIODevice::ReadOnly))
        return calls;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (!line.isEmpty())
            calls += QJsonDocument::fromJson(line).object();
    }
    return calls;
}

platform::CallLimits impatient()
{
    platform::CallLimits limits;
    limits.question = 300;
    limits.list = 300;
    return limits;
}

} // namespace test
