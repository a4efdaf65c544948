// SPDX-License-Identifier: MIT
#include "platform/cells/NamedImage.h"

#include "platform/core/Bundle.h"

#include <QFile>
#include <QtEndian>

namespace platform {

namespace {

// The header chunk comes first in every PNG file: signature (8 bytes), length and type (8 bytes), then width
// and height as big-endian 32-bit numbers.
QSizeF pngSize(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {0, 0};
    const QByteArray header = file.read(24);
    if (header.size() < 24 || !header.startsWith("\x89PNG\r\n\x1A\n"))
        return {0, 0};
    return {static_cast<double>(qFromBigEndian<quint32>(header.constData() + 16)),
            static_cast<double>(qFromBigEndian<quint32>(header.constData() + 20))};
}

} // namespace

NamedImage::NamedImage(const QString& name)
    : m_name(name)
    , m_path(Bundle::main().pathForResource(name, QStringLiteral("png")).value_or(QString()))
    , m_size(m_path.isEmpty() ? QSizeF(0, 0) : pngSize(m_path))
{
}

} // namespace platform
