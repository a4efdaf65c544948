// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What an imported file is to the library; the numbers stand in the manifest.
enum EvernoteXMLItemType : int {
    EvernoteXMLItemTypeNote = 1,
    EvernoteXMLItemTypeDocument = 2,
    EvernoteXMLItemTypeImage = 3,
    EvernoteXMLItemTypeSound = 4,
    EvernoteXMLItemTypeMovie = 5,
    EvernoteXMLItemTypeBookmark = 6,
    EvernoteXMLItemTypeWebPage = 7
};

// The kind of a file of that uniform type; a document where it is no other. Never a note.
[[nodiscard]] EvernoteXMLItemType itemTypeForUniformType(const QString& type);
