// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/EntityRules.h"
#include "platform/xml/XMLTree.h"

#include <QByteArrayView>

#include <memory>

namespace platform {

// Elements that stand within each other; a tree deeper than that is refused.
inline constexpr int maximumTreeDepth = 2048;

struct StrictReading {
    // What the bytes are encoded in, whatever the document says; null to believe the document.
    const char* encoding = nullptr;
    EntityRules::Undeclared undeclared = EntityRules::Undeclared::DropOrRefuse;
};

// Reads a well-formed document; null with an error when it is none or has no content. The root is
// an element always. The names of HTML's entities are known.
[[nodiscard]] std::shared_ptr<XMLTree> readStrictly(QByteArrayView data,
                                                    const StrictReading& reading, Error* error);

} // namespace platform
