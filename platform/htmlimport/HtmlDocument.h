// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <libxml/tree.h>

#include <memory>

namespace platform::html {

struct DocumentDeleter {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using DocumentPointer = std::unique_ptr<xmlDoc, DocumentDeleter>;

// The page's tree. A well-formed page is read as XML, because HTML's own rules would move elements
// that notes nest freely (a list directly in a list, a block in a paragraph); any other is repaired
// as HTML. Entities of the page's own are not expanded and nothing is fetched. Null without memory.
[[nodiscard]] DocumentPointer parsePage(QByteArrayView bytes);

} // namespace platform::html
