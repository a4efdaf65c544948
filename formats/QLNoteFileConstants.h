// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The names of the note file format.

inline const QString qlNoteFileExtension = QStringLiteral("qlnote");
// The record's file in the package.
inline const QString qlNoteAttributesFileName = QStringLiteral("NoteAttributes");

// For readers of the format; nothing here uses them.
inline const QString qlNoteTextType = QStringLiteral("com.brightmoor.quillery.note.text");
inline const QString qlNoteIdentifier = QStringLiteral("7B550E86-5654-4603-ADA7-39490F9812EC");
inline const QString qlNoteType = QStringLiteral("com.brightmoor.quillery.note");
inline const QString qlEncryptedType = QStringLiteral("com.brightmoor.quillery.encrypt");
