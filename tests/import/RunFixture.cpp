// SPDX-License-Identifier: MIT
#include "import/RunFixture.h"

#include "foundation/BMXLogManager.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/PropertyList.h"
#include "resources/Resources.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <thread>

using platform::Error;

bool RecordingQuillery::importFiles(const QStringList& paths, ImportMode by, const QString& to, int withRating,
                                    const QString& withComments, int withLabel, const QStringList& withTags, Error* error)
{
    calls += QStringLiteral("import");
    importedPaths = paths;
    mode = by;
    optionsWereEmpty = to.isEmpty() && withRating == 0 && withComments.isEmpty() && withLabel == 0 && withTags.isEmpty();
    if (failure)
        platform::setError(error, *failure);
    return !failure;
}

bool RecordingBridge::isRunning(const QString& bundleIdentifier) { return running.contains(bundleIdentifier); }

std::shared_ptr<platform::QuilleryApplication> RecordingBridge::runningQuillery(const QString& bundleIdentifier)
{
    return running.value(bundleIdentifier);
}

std::shared_ptr<platform::QuilleryApplication> RecordingBridge::installedQuillery(const QString& bundleIdentifier)
{
    askedForInstalled += bundleIdentifier;
    return installed.value(bundleIdentifier);
}

void RecordingDelegate::add(const QString& report)
{
    EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
    reports += report;
}

void RecordingDelegate::exportOperationDidStart(EvernoteExportOperation&) { add(QStringLiteral("start")); }

void RecordingDelegate::exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation&, quint64 count, const QString& name)
{
    add(QStringLiteral("will %1 %2").arg(count).arg(name));
}

void RecordingDelegate::exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation&, quint64 count, const QUrl& url)
{
    add(QStringLiteral("will %1 %2").arg(count).arg(url.fileName()));
}

void RecordingDelegate::exportOperationDidExportRecord(EvernoteExportOperation&)
{
    add(QStringLiteral("record"));
    if (onRecord)
        onRecord();
}

void RecordingDelegate::exportOperationDidEncounterError(EvernoteExportOperation&, const std::optional<Error>& error)
{
    add(QStringLiteral("error ") + (error ? QString::number(error->code()) : QStringLiteral("none")));
    errors.push_back(error);
}

void RecordingDelegate::exportOperationDidCancel(EvernoteExportOperation&) { add(QStringLiteral("cancel")); }

void RecordingDelegate::exportOperationDidEnd(EvernoteExportOperation&) { add(QStringLiteral("end")); }

void ImportRunTest::SetUp()
{
    registerResources();
    m_bridge->installed.insert(platform::quillery::identifier, m_quillery);
    QDir(m_folder.path()).mkdir(text("temporary"));
}

void ImportRunTest::TearDown()
{
    EXPECT_FALSE(BMXLogManager::sharedManager().isRedirected());
    platform::UserDefaults::standard().clearOverrides();
}

RunDirectories ImportRunTest::directories() const
{
    return {m_folder.filePath("temporary"), m_folder.filePath("Library"), m_folder.filePath("support"), {}};
}

QStringList ImportRunTest::logLines() const
{
    QStringList lines;
    for (const QString& line : QString::fromUtf8(test::readFile(logPath())).split(u'\n', Qt::SkipEmptyParts))
        lines += line.contains(text(" +0000 ")) ? line.section(text(" +0000 "), 1) : line;
    return lines;
}

QVariantMap ImportRunTest::manifest() const
{
    const auto list = platform::readPropertyList(filesPath() + text("/Evernote.qllibxml"));
    EXPECT_TRUE(list);
    return list.value_or(QVariant()).toMap();
}

QList<QVariantMap> ImportRunTest::records(const QString& entity) const
{
    QList<QVariantMap> found;
    const QVariantMap entities = manifest().value(text("Entities")).toMap().value(entity).toMap();
    for (auto record = entities.cbegin(); record != entities.cend(); ++record) {
        EXPECT_EQ(record.value().toMap().value(text("identifier")).toString(), record.key());
        found += record.value().toMap();
    }
    return found;
}

void ImportRunTest::prepare(EvernoteExportOperation& operation)
{
    operation.setDelegate(&m_delegate);
    operation.setScriptingBridge(m_bridge);
    operation.setRunDirectories(directories());
}

void ImportRunTest::run(const std::shared_ptr<EvernoteExportOperation>& operation)
{
    platform::OperationQueue queue;
    queue.addOperation(operation);
    QEventLoop loop;
    std::thread waiter([&] {
        queue.waitUntilAllOperationsAreFinished();
        if (platform::OperationQueue* const conversions = operation->conversionQueue())
            conversions->waitUntilAllOperationsAreFinished();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    waiter.join();
}

std::shared_ptr<EvernoteXMLFileExportOperation> ImportRunTest::importFile(const QString& name, const QByteArray& enex)
{
    auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl::fromLocalFile(m_folder.write(name, enex)));
    run(operation);
    return operation;
}

QByteArray ImportRunTest::enex(const QByteArray& notes)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + notes + "</en-export>";
}

QByteArray ImportRunTest::note(const QByteArray& title, const QByteArray& body, const QByteArray& more)
{
    return "<note><title>" + title + "</title><content><![CDATA[" + body + "]]></content>" + more + "</note>";
}
