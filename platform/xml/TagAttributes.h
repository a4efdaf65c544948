// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace platform {

// How the XML library's two parsers read a tag.
enum class TagGrammar { Xml, Html };

// Whether a tag may have more attributes than limit, for any reading of the markup: each "<" with a
// name behind it counts as the start of a tag, be it in a comment, in a literal or in another tag.
// The parsers compare each attribute of a tag with every other, and go on where markup is
// malformed, each in its own way; so nothing less would keep their time within bounds.
//
// markup: in an encoding that leaves ASCII alone.
[[nodiscard]] bool mayHaveMoreAttributes(QByteArrayView markup, TagGrammar grammar, int limit);

} // namespace platform
