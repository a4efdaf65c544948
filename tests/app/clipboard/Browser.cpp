// SPDX-License-Identifier: MIT
#include "app/clipboard/Browser.h"

#include <QtTest/QTest>

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace test {

namespace {

// On a shared machine a browser may take its time to start.
constexpr int patience = 60000; // milliseconds

QString programOf(const QString& name)
{
    return QStandardPaths::findExecutable(name);
}

QByteArray outputOf(const QStringList& words)
{
    QProcess process;
    process.start(u"xdotool"_s, words);
    static_cast<void>(
        QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, patience));
    return process.readAllStandardOutput().trimmed();
}

} // namespace

bool Browser::isInstalled()
{
    return !programOf(u"chromium"_s).isEmpty() && !programOf(u"xdotool"_s).isEmpty();
}

bool Browser::open(const QByteArray& body)
{
    const QString page = m_folder.write(
        u"page.html"_s,
        "<!doctype html><meta charset=utf-8><title>Page</title><style>body { margin: 0 }</style>" +
            body +
            "<script>onload = () => requestAnimationFrame(() => requestAnimationFrame("
            "() => document.title = 'Ready'))</script>");
    const QStringList arguments{u"--user-data-dir="_s + m_folder.filePath("profile"),
                                u"--app=file://"_s + page,
                                u"--window-position=0,0"_s,
                                u"--window-size=500,700"_s,
                                u"--lang=en-US"_s,
                                u"--no-sandbox"_s, // which refuses the superuser; the page is ours
                                u"--no-first-run"_s,
                                u"--no-default-browser-check"_s,
                                u"--disable-gpu"_s,
                                u"--disable-background-networking"_s,
                                u"--disable-component-update"_s,
                                u"--password-store=basic"_s};
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(programOf(u"chromium"_s), arguments);
    return waitForTitle(u"Ready"_s).startsWith(u"Ready"_s);
}

Browser::~Browser()
{
    m_process.terminate();
    if (!m_process.waitForFinished(10000)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

QString Browser::window()
{
    const QByteArray windows =
        outputOf({u"search"_s, u"--onlyvisible"_s, u"--class"_s, u"chromium"_s});
    return QString::fromLatin1(windows.split('\n').last());
}

QString Browser::title()
{
    return QString::fromUtf8(outputOf({u"getwindowname"_s, window()}));
}

QString Browser::waitForTitle(const QString& beginning) const
{
    QString seen;
    static_cast<void>(QTest::qWaitFor(
        [&] {
            seen = title();
            return seen.startsWith(beginning) || m_process.state() == QProcess::NotRunning;
        },
        patience));
    return seen;
}

bool act(const QStringList& words)
{
    QProcess process;
    process.start(u"xdotool"_s, words);
    return QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, patience) &&
           process.exitCode() == 0;
}

} // namespace test
