// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/XMLTree.h"

#include <QByteArrayView>

#include <memory>

namespace platform {

// Makes a tree of a document that is not well-formed, by HTML's rules, which lose no text. Names
// become lower case. An element that HTML does not know and that was never closed is empty: what
// follows it stands beside it. The root is the element that the source began with; what stood
// behind it is taken into it where the DOCTYPE names that root; else, and with text before it, all
// is put into a div.
//
// Null with an error when there is nothing to repair, or the elements nest too deeply.
[[nodiscard]] std::shared_ptr<XMLTree> repairedTree(QByteArrayView data, Error* error);

} // namespace platform
