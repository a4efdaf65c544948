// SPDX-License-Identifier: MIT
#include "exports/EnexDocuments.h"

#include <QCryptographicHash>

QByteArray test::media(const QByteArray& bytes, const QByteArray& mime)
{
    return "<en-media hash=\"" + QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex() +
           "\" type=\"" + mime + "\"/>";
}
