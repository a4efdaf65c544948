// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

namespace platform {

// A reference into the object table of a keyed archive; a value of its own in property lists.
struct PropertyListUid {
    quint32 value = 0;

    friend bool operator==(PropertyListUid left, PropertyListUid right) = default;
};

} // namespace platform

Q_DECLARE_METATYPE(platform::PropertyListUid)
