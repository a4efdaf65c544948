// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/WebFrame.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariantMap>

// The keyed archives of the responses of a page, by the absolute text of the address that answered.
using CachedResponses = QHash<QString, QByteArray>;

// The frame's archive with every resource added that the frame received and the archive does not
// list, and the same for each frame within it. Frames of the archive that have no name, or that the
// frame does not find by it, are dropped. Addresses are the same when their texts are.
[[nodiscard]] QVariantMap
webArchiveDictionaryWithDictionary(platform::WebFrame& frame, const QVariantMap& dictionary,
                                   const CachedResponses& cachedResponses);

// True when an element of a frame set hosts one of the frame's children; false when all are inline.
[[nodiscard]] bool isFrameset(const platform::WebFrame& frame);
