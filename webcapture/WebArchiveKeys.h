// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The keys of a web archive's dictionaries.
namespace webarchive {

inline const QString mainResourceKey = QStringLiteral("WebMainResource");
inline const QString subresourcesKey = QStringLiteral("WebSubresources");
inline const QString subframeArchivesKey = QStringLiteral("WebSubframeArchives");

inline const QString resourceUrlKey = QStringLiteral("WebResourceURL");
inline const QString resourceDataKey = QStringLiteral("WebResourceData");
inline const QString resourceMimeTypeKey = QStringLiteral("WebResourceMIMEType");
inline const QString resourceResponseKey = QStringLiteral("WebResourceResponse");
inline const QString resourceFrameNameKey = QStringLiteral("WebResourceFrameName");

// Ours, beside the others at the top: a dictionary with the address that a clip was taken from.
inline const QString quilleryResourceKey = QStringLiteral("QuilleryResource");
inline const QString originalWebUrlKey = QStringLiteral("QLOriginalWebURL");

} // namespace webarchive
