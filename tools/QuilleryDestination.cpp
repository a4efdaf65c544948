// SPDX-License-Identifier: MIT
#include "tools/QuilleryDestination.h"

#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/QuilleryLibraryError.h"

namespace manifest = platform::manifest;
using platform::Error;

namespace {

bool isItemsNotTaken(const Error& error)
{
    return error.domain() == QLatin1String(platform::quilleryLibraryErrorDomain) &&
           error.code() == static_cast<qint64>(platform::QuilleryLibraryErrorCode::ItemsNotTaken);
}

// The items of a manifest whose files still are where they were laid out. With the manifest its
// whole files folder is gone.
std::vector<ImportReport::SkippedNote> itemsLeft(const QStringList& manifests, const Error& error)
{
    std::vector<ImportReport::SkippedNote> left;
    for (const QString& path : manifests) {
        const QVariantMap list = platform::readPropertyList(path).value_or(QVariant()).toMap();
        const QVariantMap items =
            list.value(manifest::entitiesKey).toMap().value(manifest::itemEntity).toMap();
        for (const QVariant& record : items) {
            const QVariantMap item = record.toMap();
            const QString file = item.value(manifest::absoluteFilenameKey).toString();
            if (!platform::fileExistsAtPath(file))
                continue;
            const QString reason =
                QStringLiteral("Quillery did not take it; it still is %1").arg(file);
            left.push_back({item.value(manifest::nameKey).toString(),
                            Error(error.domain(), error.code(), reason)});
        }
    }
    return left;
}

} // namespace

QuilleryDestination::QuilleryDestination(std::shared_ptr<platform::DBusScriptingBridge> bus)
    : m_bus(std::move(bus))
    , m_bridge(std::make_shared<RememberingBridge>(m_bus))
{
}

ImportDestination::Readiness QuilleryDestination::prepare(const QStringList&, QString* problem)
{
    if (m_directories.temporary.isEmpty()) {
        *problem = QStringLiteral("There is no private temporary folder, and none can be made.");
        return Readiness::Failure;
    }
    return m_lock.acquire(m_directories.temporary, QStringLiteral("Quillery"), problem)
               ? Readiness::Ready
               : Readiness::Failure;
}

QStringList QuilleryDestination::finishRun(RunOutcome& outcome)
{
    const std::optional<RememberingBridge::Import> import = m_bridge->takeImport();
    const auto quillery = m_bus->lastQuillery();
    if (!quillery)
        return {};
    if (!import) {
        // What the run laid out is of no use to anybody, and the next run may be far away.
        static_cast<void>(
            platform::removeItem(m_directories.filesPathFor(quillery->bundleIdentifier())));
        return {};
    }
    outcome.handedTo = QStringLiteral("Quillery (%1)").arg(quillery->bundleIdentifier());
    if (import->error)
        correctFailure(outcome, *import);
    const QString folder = quillery->libraryFolder();
    return outcome.importedItems() == 0 || folder.isEmpty() ? QStringList() : QStringList(folder);
}

void QuilleryDestination::correctFailure(RunOutcome& outcome,
                                         const RememberingBridge::Import& import) const
{
    outcome.end = RunOutcome::End::Failed;
    outcome.error = import.error;
    // How far any other failure let it come, only Quillery knows.
    if (!isItemsNotTaken(*import.error))
        return;
    const std::vector<ImportReport::SkippedNote> left = itemsLeft(import.paths, *import.error);
    outcome.itemsTaken =
        outcome.report.items - std::min<quint64>(outcome.report.items, left.size());
    outcome.report.skipped.insert(outcome.report.skipped.end(), left.begin(), left.end());
}
