// SPDX-License-Identifier: MIT
#pragma once

#include "convert/ConversionFixture.h"
#include "platform/operations/OperationQueue.h"
#include "platform/propertylist/PropertyList.h"

#include "platform/webview/HttpTestServer.h"

#include <QEventLoop>

#include <thread>

// Clips wait for the main thread, so they are converted on a queue while the test runs the event
// loop.
class WebClipTest : public ConversionTest {
protected:
    using Record = platform::manifest::Record;

    void SetUp() override
    {
        ConversionTest::SetUp();
        makeClip();
    }

    void makeClip(const char* title = "Title", const char* sourceUrl = "http://example.org/clipped")
    {
        newItem(title);
        m_item->noteAttributes().setSource(text("web.clip"));
        m_item->noteAttributes().setSourceURL(text(sourceUrl));
        setBody("<en-note><p>clipped</p></en-note>");
    }
    void reloadFromWeb(const char* path)
    {
        platform::UserDefaults::standard().setOverride(text("ReloadFromWeb"), true);
        m_item->noteAttributes().setSourceURL(m_server.address(text(path)));
    }

    static void onQueue(const std::function<void()>& work)
    {
        platform::OperationQueue queue;
        queue.addOperationWithBlock(work);
        QEventLoop loop;
        std::thread waiter([&] {
            queue.waitUntilAllOperationsAreFinished();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        loop.exec();
        waiter.join();
    }
    Record convertClip()
    {
        Record record;
        onQueue([&] { record = convert(); });
        EXPECT_FALSE(QFileInfo::exists(m_folder.filePath(m_item->identifier())));
        return record;
    }
    // The operation alone, with a scratch folder of its own.
    std::optional<QUrl> createWebArchive(const QByteArray& body, bool refreshing = false)
    {
        m_item->setGroupDict(m_group);
        const QString scratch = m_folder.filePath(m_item->identifier());
        QDir(m_folder.path()).mkdir(m_item->identifier());
        m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(scratch));
        std::optional<QUrl> file;
        onQueue([&] {
            file = m_item->createWebArchiveForElement(elementFromBody(body), refreshing, &m_error);
        });
        return file;
    }

    static QString path(const Record& record)
    {
        return record->value(platform::manifest::absoluteFilenameKey).toString();
    }
    static QString filename(const Record& record)
    {
        return record->value(platform::manifest::filenameKey).toString();
    }
    static int itemType(const Record& record)
    {
        return record->value(platform::manifest::itemTypeKey).toInt();
    }
    static QVariantMap archiveAt(const QString& path)
    {
        return platform::readPropertyList(path).value_or(QVariant()).toMap();
    }
    static QString page(const QVariantMap& archive)
    {
        return QString::fromUtf8(archive.value(text("WebMainResource"))
                                     .toMap()
                                     .value(text("WebResourceData"))
                                     .toByteArray());
    }
    static QByteArrayList images(const QVariantMap& archive)
    {
        QByteArrayList result;
        for (const QVariant& resource : archive.value(text("WebSubresources")).toList())
            result += resource.toMap().value(text("WebResourceData")).toByteArray();
        return result;
    }
    static QString originalAddress(const QVariantMap& archive)
    {
        return archive.value(text("QuilleryResource"))
            .toMap()
            .value(text("QLOriginalWebURL"))
            .toString();
    }
    QStringList systemLogWith(const char* part) const { return m_systemLog.filter(text(part)); }

    test::HttpTestServer m_server;
};
