// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The element of a document that hosts a frame.
struct FrameElement {
    // Frame is the frame element of a frame set.
    enum class Kind { Frame, InlineFrame, Object, Embed };

    Kind kind = Kind::InlineFrame;
    // The name attribute, or the id where that is missing, as written.
    QString name;
};

} // namespace platform
