// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QHash>
#include <QVariant>

#include <optional>
#include <vector>

namespace platform {

// Writes the binary form, "bplist00": the objects, a table of their offsets, a trailer; all numbers
// big-endian. Unlike common libraries it keeps the width of reals, which keyed archives depend on.
class BinaryPropertyListWriter {
public:
    [[nodiscard]] std::optional<QByteArray> write(const QVariant& root, Error* error);

private:
    // An object is known by its place in the table before its own elements have one.
    struct Object {
        QVariant container;
        int depth = 0;
        QByteArray encoded;
        std::vector<quint64> references;
    };

    std::optional<quint64> add(const QVariant& value, int depth);
    std::optional<quint64> addScalar(QByteArray encoded);
    bool addElements(std::size_t index);
    [[nodiscard]] QByteArray assemble() const;
    std::nullopt_t fail(const char* reason);

    std::vector<Object> m_objects;
    // Equal scalars are written once; by their encoded form, so that 1, 1.0 and true stay apart.
    QHash<QByteArray, quint64> m_scalars;
    Error m_error;
};

} // namespace platform
