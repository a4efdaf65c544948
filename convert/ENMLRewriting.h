// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLNote.h"
#include "foundation/FileNameFitting.h"
#include "platform/core/Error.h"
#include "platform/xml/XMLNode.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

// Turns a note's body in Evernote's markup into a page that an HTML reader understands. The body is serialised
// once; Evernote's own tags are then found in that text and replaced, first the attachments, then the
// checkboxes, then the encrypted passages. Nothing else in the markup is touched.
class ENMLRewriting {
public:
    // How the page names an image's file.
    enum class ImageSource {
        // As it is, for a reader that takes it for a name.
        FileName,
        // As a reader takes it that resolves addresses: the name with escapes where it would mean another place.
        RelativeAddress
    };

    // folder: where the attachments' files go and the page will lie; it must exist.
    ENMLRewriting(const EvernoteXMLNote& note, const QUrl& folder, ImageSource imageSource = ImageSource::FileName);

    // The markup without its en-note tags, each attachment written beside it: an image as an img element, any
    // other as a marker with the file's name. A start tag of en-note that has attributes stays.
    [[nodiscard]] std::optional<QString> xhtmlString(const platform::XMLElement& noteElement,
                                                     platform::Error* error = nullptr);
    // The same with box texts for checkboxes and asterisks for encrypted passages, in the page template.
    [[nodiscard]] std::optional<QString> noteXHTMLString(const platform::XMLElement& noteElement,
                                                         platform::Error* error = nullptr);

    // The files written beside the page, by name.
    [[nodiscard]] const QStringList& fileNames() const { return m_fileNames; }

    // What the person should know of the body that was rewritten, in their language.
    [[nodiscard]] QStringList warnings() const;

private:
    [[nodiscard]] std::optional<QString> replacementForMedia(const platform::XMLElement& tag, platform::Error* error);
    [[nodiscard]] std::shared_ptr<EvernoteXMLResource> resourceWithHash(const std::optional<QString>& hash);
    [[nodiscard]] QString fileNameFor(const EvernoteXMLResource& resource, const QString& type);

    const EvernoteXMLNote& m_note;
    QUrl m_folder;
    ImageSource m_imageSource;
    // The resources' hashes in their order, empty where one has none; made when the first tag asks.
    std::optional<QStringList> m_hashes;
    QSet<QString> m_shownHashes;
    FreeFileNames m_freeNames;
    QStringList m_fileNames;
    int m_missingAttachments = 0;
    int m_encryptedPassages = 0;
};
