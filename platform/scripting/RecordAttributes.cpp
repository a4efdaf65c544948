// SPDX-License-Identifier: MIT
#include "platform/scripting/RecordAttributes.h"

#include "platform/scripting/ImportManifest.h"

namespace platform {

namespace {

bool isWebAddress(const QString& text)
{
    static const QStringList schemes
        = {QStringLiteral("http://"), QStringLiteral("https://"), QStringLiteral("ftp://")};
    const auto begins = [&](const QString& scheme) {
        return text.startsWith(scheme, Qt::CaseInsensitive);
    };
    return std::any_of(schemes.begin(), schemes.end(), begins) && !text.contains(QLatin1Char('\n'));
}

} // namespace

ResourceValues resourceValuesOfRecord(const QVariantMap& record)
{
    ResourceValues values;
    const QVariant created = record.value(manifest::dateCreatedKey);
    if (created.metaType().id() == QMetaType::QDateTime)
        values.creationDate = created.toDateTime();
    const QVariant modified = record.value(manifest::dateModifiedKey);
    if (modified.metaType().id() == QMetaType::QDateTime)
        values.contentModificationDate = modified.toDateTime();
    const QVariant isHidden = record.value(manifest::extensionHiddenKey);
    if (isHidden.metaType().id() == QMetaType::Bool)
        values.hasHiddenExtension = isHidden.toBool();

    const QVariant tags = record.value(manifest::tagsStringKey);
    if (tags.metaType().id() == QMetaType::QString) {
        const QStringList names = tags.toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
        if (!names.isEmpty())
            values.tagNames = names;
    }
    const QVariant comments = record.value(manifest::commentsKey);
    if (comments.metaType().id() == QMetaType::QString && !comments.toString().isEmpty())
        (isWebAddress(comments.toString()) ? values.originUrl : values.comment) = comments.toString();
    return values;
}

} // namespace platform
