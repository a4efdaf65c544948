// SPDX-License-Identifier: MIT
#pragma once

// Where in a note the parser stands. An element that is not read is None.

enum EvernoteXMLElement : int {
    EvernoteXMLElementNone = 0,
    EvernoteXMLElementNote = 1
};

enum EvernoteXMLNoteElement : int {
    EvernoteXMLNoteElementNone = 0,
    EvernoteXMLNoteElementTitle = 1,
    EvernoteXMLNoteElementContent = 2,
    EvernoteXMLNoteElementCreated = 3,
    EvernoteXMLNoteElementUpdated = 4,
    EvernoteXMLNoteElementTag = 5,
    EvernoteXMLNoteElementResource = 6,
    EvernoteXMLNoteElementNoteAttributes = 7
};

enum EvernoteXMLResourceElement : int {
    EvernoteXMLResourceElementNone = 0,
    EvernoteXMLResourceElementData = 1,
    EvernoteXMLResourceElementMime = 2,
    EvernoteXMLResourceElementWidth = 3,
    EvernoteXMLResourceElementHeight = 4,
    EvernoteXMLResourceElementResourceAttributes = 5
};

enum EvernoteXMLResourceAttributesElement : int {
    EvernoteXMLResourceAttributesElementNone = 0,
    EvernoteXMLResourceAttributesElementTimestamp = 1,
    EvernoteXMLResourceAttributesElementFileName = 2
};

enum EvernoteXMLNoteAttributesElement : int {
    EvernoteXMLNoteAttributesElementNone = 0,
    EvernoteXMLNoteAttributesElementSource = 1,
    EvernoteXMLNoteAttributesElementSourceURL = 2
};
