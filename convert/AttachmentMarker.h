// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// How an attachment that is no image stands in a note's page: its file's name between two markers.
// The blanks within them and those between them and the name make two on each side of it in the
// page; laid out, each pair is one.
namespace attachmentmarker {

inline const QString head = QStringLiteral("***QUILLERYATTACHMENT ");
inline const QString tail = QStringLiteral(" QUILLERYATTACHMENT***");

} // namespace attachmentmarker
