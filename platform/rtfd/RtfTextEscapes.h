// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/RtfOutput.h"

#include <QStringView>

namespace platform {

// Text as rich text writes it: ASCII as it is, what code page 1252 has as \'xx, all else as UTF-16
// code units (\u with a signed number, surrogates one by one, paired or not) after one \uc0, which
// says that no substitute follows them.
void appendRtfText(RtfOutput& out, QStringView text);

// A list's marker: text whose bullets are code units like all others, never \'95, as newer writers
// have them.
void appendRtfMarker(RtfOutput& out, QStringView marker);

// A name outside of the document's text, where no word may stand for a character.
void appendRtfName(RtfOutput& out, QStringView name);

// A file's name, which rich text holds in UTF-8 whatever the document's code page is.
void appendRtfFileName(RtfOutput& out, QStringView name);

// A link's target for a quoted field instruction: pure ASCII, with percent escapes for what would
// end the quotes or the group and for all that no URL may hold.
void appendRtfUrl(RtfOutput& out, QStringView url);

} // namespace platform
