// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryCatalogue.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

namespace platform {

namespace {

const QString formatVersionKey = QStringLiteral("FormatVersion");
const QString importKey = QStringLiteral("Import");
const QString folderKey = QStringLiteral("Folder");
const QString itemsKey = QStringLiteral("Items");
const QString fileNameKey = QStringLiteral("FileName");
const QString sourceFileKey = QStringLiteral("SourceFile");
const QString recordKey = QStringLiteral("Record");
constexpr int formatVersion = 1;

} // namespace

std::optional<LibraryCatalogue> LibraryCatalogue::read(const QString& folder, Error* error)
{
    const auto bytes = readFile(folder + QLatin1Char('/') + fileName, error);
    const auto list = bytes ? propertyListFromData(*bytes, error) : std::nullopt;
    if (!list)
        return std::nullopt;
    const QVariantMap top = list->toMap();
    if (top.value(formatVersionKey).toInt() != formatVersion) {
        setError(
            error,
            Error(cocoaErrorDomain, FileReadCorruptFileError,
                  localizedString("\u201c%1\u201d holds no catalogue that this version reads.").arg(folder)));
        return std::nullopt;
    }
    LibraryCatalogue catalogue;
    catalogue.importRecord = top.value(importKey).toMap();
    catalogue.folderRecord = top.value(folderKey).toMap();
    for (const QVariant& entry : top.value(itemsKey).toList()) {
        const QVariantMap item = entry.toMap();
        catalogue.items.push_back({item.value(fileNameKey).toString(), item.value(sourceFileKey).toString(),
                                   item.value(recordKey).toMap()});
    }
    return catalogue;
}

bool LibraryCatalogue::write(const QString& folder, Error* error) const
{
    QVariantList list;
    list.reserve(static_cast<qsizetype>(items.size()));
    for (const Item& item : items) {
        list += QVariantMap{
            {fileNameKey, item.fileName}, {sourceFileKey, item.sourceFile}, {recordKey, item.record}};
    }
    const QVariantMap top = {{formatVersionKey, formatVersion},
                             {importKey, importRecord},
                             {folderKey, folderRecord},
                             {itemsKey, list}};
    const auto bytes = propertyListData(top, PropertyListFormat::Binary, error);
    return bytes && writeFile(folder + QLatin1Char('/') + fileName, *bytes, WriteOption::Atomic, error);
}

} // namespace platform
