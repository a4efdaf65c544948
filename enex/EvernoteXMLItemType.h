// SPDX-License-Identifier: MIT
#pragma once

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
