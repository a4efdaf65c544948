// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/ContentType.h"

#include <QByteArray>

#include <optional>

namespace platform {

struct DataUrl {
    ContentType type;
    QByteArray data;
};

// Reads a data: address; none when it has no comma or its base64 is broken.
[[nodiscard]] std::optional<DataUrl> parseDataUrl(const QString& address);

} // namespace platform
