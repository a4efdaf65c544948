// SPDX-License-Identifier: MIT
#include "support/PrivateBus.h"

#include <csignal>
#include <sys/prctl.h>

namespace test {

namespace {

// Milliseconds; generous, because others may want the processors too.
constexpr int patience = 60000;

const char* const configuration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%1/bus</listen>
  <servicedir>%1/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="service_start_timeout">%2</limit>
  <limit name="max_incoming_bytes">1000000000</limit>
  <limit name="max_outgoing_bytes">1000000000</limit>
  <limit name="max_message_size">1000000000</limit>
</busconfig>
)";

QString quoted(QString word)
{
    return QLatin1Char('\'') + word.replace(QLatin1String("'"), QLatin1String("'\\''")) +
           QLatin1Char('\'');
}

} // namespace

PrivateBus::~PrivateBus()
{
    kill();
}

void PrivateBus::addService(const QString& name, const QStringList& command) const
{
    QStringList words;
    for (const QString& word : command)
        words += quoted(word);
    m_folder.write(QStringLiteral("services/%1.service").arg(name),
                   QStringLiteral("[D-BUS Service]\nName=%1\nExec=%2\n")
                       .arg(name, words.join(QLatin1Char(' ')))
                       .toUtf8());
}

void PrivateBus::start()
{
    QDir().mkpath(m_folder.filePath("services"));
    const QString file = m_folder.write(QStringLiteral("bus.conf"),
                                        QString::fromLatin1(configuration)
                                            .arg(m_folder.path(), QString::number(m_startLimit))
                                            .toUtf8());
    endWithTest(m_daemon);
    const QString errors = m_folder.filePath("errors");
    m_daemon.setStandardErrorFile(errors);
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + file, QStringLiteral("--nofork"),
                    QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(patience)) {
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    ASSERT_FALSE(m_address.isEmpty())
        << qPrintable(m_daemon.errorString()) << readFile(errors).constData();
}

QProcessEnvironment PrivateBus::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    return environment;
}

void PrivateBus::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished(patience);
}

void PrivateBus::send(int signal) const
{
    ASSERT_EQ(::kill(static_cast<pid_t>(m_daemon.processId()), signal), 0);
}

void endWithTest(QProcess& process)
{
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

} // namespace test
