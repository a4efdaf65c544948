// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/WebFrame.h"
#include "webcapture/SubresourceMerging.h"

#include <QVariantMap>

// The frame's archive with every resource added that the frame received and the archive does not
// list, and the same for each frame within it. Frames of the archive that have no name, or that the
// frame does not find by it, are dropped. Addresses are the same when their texts are.
[[nodiscard]] QVariantMap
webArchiveDictionaryWithDictionary(platform::WebFrame& frame, const QVariantMap& dictionary,
                                   const CachedResponses& cachedResponses);

// True when an element of a frame set hosts one of the frame's children; false when all are inline.
[[nodiscard]] bool isFrameset(const platform::WebFrame& frame);
