// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/core/Error.h"
#include "platform/files/FileWrapper.h"
#include "platform/rtfd/DocumentAttributes.h"

#include <QStringList>

#include <optional>

namespace platform {

// The name of the rich text within a package.
extern const QString rtfdTextFilename;

// A folder with the rich text of the range in "TXT.rtf" and one file for each attachment in it, and
// nothing else. Files keep their preferred names as far as a folder on a Mac can hold them side by
// side; two attachments that share a file wrapper share the file. An attachment without a file
// wrapper keeps its place and size in the text, under a name that no file of the package has.
//
// reservedNames: names that no attachment may take, for files that the caller adds to the package.
// A range that does not lie within the text throws std::out_of_range.
[[nodiscard]] FileWrapper::Pointer rtfdFileWrapper(const AttributedString& text, TextRange range,
                                                   const DocumentAttributes& attributes,
                                                   const QStringList& reservedNames,
                                                   Error* error = nullptr);
[[nodiscard]] FileWrapper::Pointer rtfdFileWrapper(const AttributedString& text, TextRange range,
                                                   const DocumentAttributes& attributes = {},
                                                   Error* error = nullptr);

// Reads a package. An attachment whose file is missing becomes one without a file wrapper. Fails
// when there is no rich text in the folder. attributes: filled on success when given.
[[nodiscard]] std::optional<AttributedString>
attributedStringFromRtfd(const FileWrapper& package, DocumentAttributes* attributes = nullptr,
                         Error* error = nullptr);
[[nodiscard]] std::optional<AttributedString>
attributedStringFromRtfd(const QString& path, DocumentAttributes* attributes = nullptr,
                         Error* error = nullptr);

} // namespace platform
