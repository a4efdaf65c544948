// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <vector>

namespace test {

// A binary property list of encoded objects, the first one being the root, with references of one byte.
[[nodiscard]] QByteArray binaryPropertyList(const std::vector<QByteArray>& objects);

// The same with the offsets given, counted from the first object.
[[nodiscard]] QByteArray binaryPropertyList(const QByteArray& bodies, const std::vector<quint64>& offsets,
                                            int referenceSize = 1);

[[nodiscard]] QByteArray bigEndian(quint64 number, int size);

} // namespace test
