// SPDX-License-Identifier: MIT
#pragma once

#include "enex/NoteLinkTargets.h"
#include "platform/xml/XMLNode.h"

#include <QString>
#include <QStringList>

// A link to an item of the library: this, and the item's identifier.
inline const QString itemLinkPrefix = QStringLiteral("quillery://item/");

// The links of a body that lead to other notes.
struct NoteLinks {
    quint64 count = 0;
    // The identifiers that links lead to now, one entry a link.
    QStringList resolved;
};

// Finds the links to notes in a body (evernote:///view/…). With targets, each one whose text is the
// title of exactly one note becomes a link to that note's item; the others stay as they are.
// targets: null to leave all as they are.
NoteLinks resolveNoteLinks(const platform::XMLElement& body, const NoteLinkTargets* targets);
