// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace platform {

class KeyedArchiver;

// An object that a keyed archive can hold under its class's name.
class KeyedCoding {
public:
    KeyedCoding() = default;
    KeyedCoding(const KeyedCoding&) = default;
    KeyedCoding& operator=(const KeyedCoding&) = default;
    virtual ~KeyedCoding() = default;

    // The class and its ancestors as the archive records them, such as {"QLNoteAttributes",
    // "NSObject"}.
    [[nodiscard]] virtual QStringList archivedClassNames() const = 0;

    // Gives the object's fields to the archiver, each under its key.
    virtual void encodeWithCoder(KeyedArchiver& coder) = 0;
};

} // namespace platform
