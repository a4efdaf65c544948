// SPDX-License-Identifier: MIT
#include "enex/NoteLinkTargets.h"

#include "platform/core/Uuid.h"

#include <QCryptographicHash>

namespace {

// Empty for a title that no link can name.
QByteArray digestOfTitle(const QString& title)
{
    const QString plain = title.simplified();
    if (plain.isEmpty() || plain.size() > NoteLinkTargets::longestTitle)
        return {};
    return QCryptographicHash::hash(plain.toUtf8(), QCryptographicHash::Sha1);
}

} // namespace

void NoteLinkTargets::addNote(const QString& title)
{
    const QByteArray digest = digestOfTitle(title);
    if (digest.isEmpty())
        return;
    const bool isFirst = !m_identifiers.contains(digest);
    m_identifiers.insert(digest, isFirst ? QUuid(platform::newUuidString()) : QUuid());
}

std::optional<QString> NoteLinkTargets::identifierForTitle(const QString& title) const
{
    const QByteArray digest = digestOfTitle(title);
    const QUuid identifier = digest.isEmpty() ? QUuid() : m_identifiers.value(digest);
    if (identifier.isNull())
        return std::nullopt;
    return identifier.toString(QUuid::WithoutBraces).toUpper();
}
