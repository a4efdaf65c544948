// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

namespace test {

// Everything that a library's folder holds, by path: bytes, attributes and, where the manifest gave
// one, the modification date. Two imports of the same notes have the same description: identifiers,
// the date of the import and where the files were laid out are left out.
[[nodiscard]] QMap<QString, QString> describedFolder(const QString& folder);

// Fails the test at each entry that is not the same in both.
void expectSameFolder(const QString& folder, const QString& other);

} // namespace test
