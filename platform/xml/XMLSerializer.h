// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <libxml/tree.h>

namespace platform {

// The markup of a node and all within, as UTF-8: no declaration, no reformatting, every element
// with a start and an end tag. What an XML reader makes of it is the same tree again.
[[nodiscard]] QByteArray serializedNode(const xmlNode* node);

// A name with the prefix of its namespace, as UTF-8.
[[nodiscard]] QByteArray qualifiedName(const xmlChar* name, const xmlNs* space);

// An attribute's value, as UTF-8.
[[nodiscard]] QByteArray attributeValue(const xmlAttr* attribute);

[[nodiscard]] inline QByteArrayView viewOf(const xmlChar* utf8)
{
    return utf8 ? QByteArrayView(reinterpret_cast<const char*>(utf8)) : QByteArrayView("", 0);
}

} // namespace platform
