// SPDX-License-Identifier: MIT
#pragma once

#include "formats/QLNoteChecklistItem.h"
#include "platform/attributedtext/AttributedString.h"

// Checkboxes in and out of a text. A note in memory holds them as attachments, a stored one as box
// texts and items.

// One item a line that begins with a box text, in order. Box texts elsewhere are text.
[[nodiscard]] QLNoteChecklistItems recoverChecklists(const platform::AttributedString& text);

// A copy of the text with every checkbox attachment in the range replaced by its box text. items,
// when given, becomes the checkboxes with their places in the copy.
[[nodiscard]] platform::AttributedString
attributedStringByReplacingChecklists(const platform::AttributedString& text,
                                      QLNoteChecklistItems* items, platform::TextRange inRange);

// Puts the attachments back where the items say that box texts stand, in the order of the items,
// and gives their lines the checklist style. Items that do not fit the text are given up for those
// that recoverChecklists finds, with a word in the system's log. Returns the items that were used.
QLNoteChecklistItems restoreChecklists(platform::AttributedString& text,
                                       const QLNoteChecklistItems& items);
