// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/WebResource.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QVariantList>

// The keyed archives of the responses of a page, by the absolute text of the address that answered.
using CachedResponses = QHash<QString, QByteArray>;

// An archive's list of resources, each a dictionary, with those behind it that were received and
// that it does not name. What has no data or no address is left out. Addresses are the same when
// their texts are.
[[nodiscard]] QVariantList mergedSubresources(const QVariantList& listed,
                                              const QList<platform::WebResource>& received,
                                              const CachedResponses& cachedResponses);
