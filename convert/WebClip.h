// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLNote.h"
#include "platform/core/Error.h"
#include "platform/xml/XMLNode.h"

#include <QByteArray>
#include <QSet>
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

    // The hashes of the attachments that the page shows as the note holds them; none of a page that
    // was loaded again.
    [[nodiscard]] const QSet<QString>& shownHashes() const { return m_shownHashes; }
    // The places that name an attachment which the note does not hold.
    [[nodiscard]] quint64 missingAttachments() const { return m_missingAttachments; }

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
    QSet<QString> m_shownHashes;
    quint64 m_missingAttachments = 0;
    QStringList m_warnings;
};
