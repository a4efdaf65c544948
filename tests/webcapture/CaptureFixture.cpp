// SPDX-License-Identifier: MIT
#include "webcapture/CaptureFixture.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/PropertyList.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <thread>

void CaptureTest::TearDown()
{
    platform::UserDefaults::standard().clearOverrides();
}

CaptureTest::Operation CaptureTest::operationFor(const QUrl& url)
{
    auto operation = std::make_shared<EvernoteWebConversionOperation>();
    operation->setOriginalURL(url);
    operation->setOriginalWebURL(QUrl(text("http://example.org/clipped?a=1#top")));
    return operation;
}

void CaptureTest::run(const Operation& operation)
{
    std::atomic<bool> ended = false;
    std::thread waiter([&] {
        operation->start();
        operation->waitUntilFinished();
        ended = true;
    });
    waitUntil([&] { return ended && !operation->offscreenWebView(); });
    if (!ended)
        operation->cancel();
    waiter.join();
}

void CaptureTest::waitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < 60000)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    EXPECT_TRUE(condition()) << "nothing happened for a minute";
}

QVariantMap CaptureTest::archiveOf(const Operation& operation)
{
    if (!operation->webArchiveData()) {
        ADD_FAILURE() << "no archive: "
                      << qPrintable(
                             operation->operationError().value_or(platform::Error()).description());
        return {};
    }
    const auto archive = platform::propertyListFromData(*operation->webArchiveData());
    EXPECT_TRUE(archive);
    return archive.value_or(QVariant()).toMap();
}

QVariantMap CaptureTest::mainResource(const QVariantMap& archive)
{
    return archive.value(text("WebMainResource")).toMap();
}

static QList<QVariantMap> maps(const QVariant& list)
{
    QList<QVariantMap> result;
    for (const QVariant& entry : list.toList())
        result += entry.toMap();
    return result;
}

QList<QVariantMap> CaptureTest::subresources(const QVariantMap& archive)
{
    return maps(archive.value(text("WebSubresources")));
}

QList<QVariantMap> CaptureTest::subframes(const QVariantMap& archive)
{
    return maps(archive.value(text("WebSubframeArchives")));
}

QStringList CaptureTest::paths(const QVariantMap& archive) const
{
    QStringList result;
    for (const QVariantMap& resource : subresources(archive))
        result +=
            resource.value(text("WebResourceURL")).toString().remove(m_server.address(QString()));
    return result;
}
