// SPDX-License-Identifier: MIT
#include "platform/pasteboard/MimeBytes.h"

#include <QVariant>

#include <algorithm>

namespace platform {

void MimeBytes::setBytes(const QString& format, const QByteArray& bytes)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& each) { return each.format == format; });
    if (entry != m_entries.end())
        entry->bytes = bytes;
    else
        m_entries.push_back({format, bytes});
}

QStringList MimeBytes::formats() const
{
    QStringList formats;
    for (const Entry& entry : m_entries)
        formats += entry.format;
    return formats;
}

bool MimeBytes::hasFormat(const QString& format) const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& entry) { return entry.format == format; });
}

// Qt turns bytes into the type that it asked for.
QVariant MimeBytes::retrieveData(const QString& format, QMetaType) const
{
    for (const Entry& entry : m_entries) {
        if (entry.format == format)
            return entry.bytes;
    }
    return {};
}

} // namespace platform
