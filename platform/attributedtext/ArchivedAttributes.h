// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextAttributes.h"
#include "platform/propertylist/ArchiveValue.h"
#include "platform/propertylist/ColorData.h"

#include <optional>

namespace platform {

// Text attributes in the platform's own archived objects, for keyed archives: NSFont, NSColor,
// NSParagraphStyle with its tab stops and lists, and the dictionary that holds them under the
// attributes' names. What an archive leaves out, or holds in another form, reads as none.

[[nodiscard]] ArchiveValue archivedFont(const Font& font);
// None for anything but a font with a name. A name that nobody knows makes a family of its own.
[[nodiscard]] std::optional<Font> fontFromArchivedObject(const ArchiveValue& object);

// Null for a pattern, which has no components.
[[nodiscard]] ArchiveValue archivedColor(const Color& color);
[[nodiscard]] std::optional<Color> textColorFromArchivedObject(const ArchiveValue& object);
[[nodiscard]] Color textColorFromData(const ColorData& data);

// Cells and boxes are not archived: what is typed into a cell takes the cell's from the text there.
[[nodiscard]] ArchiveValue archivedParagraphStyle(const ParagraphStyle& style);
[[nodiscard]] std::optional<ParagraphStyle>
paragraphStyleFromArchivedObject(const ArchiveValue& object);

// A dictionary; attachments are not archived.
[[nodiscard]] ArchiveValue archivedTextAttributes(const TextAttributes& attributes);
// None for anything but a dictionary.
[[nodiscard]] std::optional<TextAttributes>
textAttributesFromArchivedObject(const ArchiveValue& object);

} // namespace platform
