// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/attributedtext/Font.h"
#include "platform/core/Error.h"

#include <QSet>
#include <QString>
#include <QUrl>

// A note's page becomes the text of a note file.
class NoteDocument {
public:
    // The font of a note's text where its markup names none: the person's choice in the notes
    // application's settings, else the standard font at 12 points.
    [[nodiscard]] static platform::Font bodyFont();

    // The page laid out as text in the body font; empty, with an error, when it cannot be read.
    // Attachment markers stand in it with single blanks round the file's name.
    [[nodiscard]] static platform::AttributedString textOfPage(const QString& pagePath,
                                                               platform::Error* error = nullptr);

    // The preferred names of the files that the text has attached.
    [[nodiscard]] static QSet<QString> attachedFileNames(const platform::AttributedString& text);

    // Adds a marker for a file on a line of its own at the end.
    static void appendAttachmentMarker(platform::AttributedString& text, const QString& fileName);

    // Puts the file that each attachment marker names in the marker's place. folder: where the
    // files lie. False with an error when one cannot be loaded. Throws std::out_of_range for a
    // marker without an end.
    [[nodiscard]] static bool replaceAttachmentMarkers(platform::AttributedString& text,
                                                       const QString& folder,
                                                       platform::Error* error = nullptr);

    // Writes the text as a note file, its box texts at line starts as live checkboxes.
    [[nodiscard]] static bool writeNoteFile(const platform::AttributedString& text,
                                            const QString& path, platform::Error* error = nullptr);
};
