// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "webcapture/WebFrameBMExtensions.h"

#include <QUrl>

#include <optional>

// The file data of a page's archive: the platform's archive data, in its own form of property list,
// with what else the frames received and the address that the page was clipped from (empty text
// where there is none). None with an error, and a line in the system's log, when the data cannot be
// read or written.
[[nodiscard]] std::optional<QByteArray>
completedWebArchiveData(const QByteArray& platformData, platform::WebFrame& mainFrame,
                        const CachedResponses& cachedResponses, const QUrl& originalWebURL,
                        platform::Error* error = nullptr);
