// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLNote.h"
#include "platform/core/Error.h"
#include "platform/xml/XMLNode.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

// A clipped page becomes the data of a web archive: of the page as the web has it now, or of one
// that is rebuilt from what was clipped. Either is loaded on the main thread while the caller
// waits, so the caller must be another thread.
class WebClip {
public:
    inline static const QString fileExtension = QStringLiteral("webarchive");

    // folder: where the rebuilt page and its images go; it must exist.
    WebClip(const EvernoteXMLNote& note, const QUrl& folder);

    // The page is loaded again from the address that it was clipped from, which must be of the web.
    [[nodiscard]] std::optional<QByteArray> archiveFromWeb(platform::Error* error = nullptr);
    // Fails with EvernoteXMLItemErrorNoWebArchive when the clip shows an attachment that is no
    // image.
    [[nodiscard]] std::optional<QByteArray>
    archiveFromNoteElement(const platform::XMLElement& noteElement,
                           platform::Error* error = nullptr);

    // What the person should know of the page that was archived, in their language.
    [[nodiscard]] const QStringList& warnings() const { return m_warnings; }

private:
    // The page as text in its place in the folder.
    [[nodiscard]] std::optional<QUrl> rebuiltPage(const platform::XMLElement& noteElement,
                                                  platform::Error* error);
    [[nodiscard]] std::optional<QByteArray> archiveOfPage(const QUrl& page,
                                                          platform::Error* error) const;

    const EvernoteXMLNote& m_note;
    QUrl m_folder;
    QUrl m_sourceURL;
    QStringList m_warnings;
};
