// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLNote.h"
#include "foundation/FreeFileNames.h"
#include "platform/core/Error.h"
#include "platform/xml/XMLNode.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

// Turns a note's body in Evernote's markup into a page that an HTML reader understands. The body is
// serialised once; Evernote's own tags are then found in that text and replaced, first the
// attachments, then the checkboxes, then the encrypted passages. Nothing else in the markup is
// touched.
class ENMLRewriting {
public:
    // How the page names an image's file.
    enum class ImageSource {
        // As it is, for a reader that takes it for a name.
        FileName,
        // As a reader takes it that resolves addresses: the name with escapes where it would mean
        // another place.
        RelativeAddress
    };

    virtual ~ENMLRewriting() = default;

    // folder: where the attachments' files go and the page will lie; it must exist.
    ENMLRewriting(const EvernoteXMLNote& note, const QUrl& folder,
                  ImageSource imageSource = ImageSource::FileName);

    // The markup without its en-note tags, each attachment written beside it: an image as an img
    // element, any other as a marker with the file's name. A start tag of en-note that has
    // attributes stays.
    [[nodiscard]] std::optional<QString> xhtmlString(const platform::XMLElement& noteElement,
                                                     platform::Error* error = nullptr);
    // The same with box texts for checkboxes and asterisks for encrypted passages.
    [[nodiscard]] std::optional<QString> noteBodyString(const platform::XMLElement& noteElement,
                                                        platform::Error* error = nullptr);
    // The same in the page template.
    [[nodiscard]] std::optional<QString> noteXHTMLString(const platform::XMLElement& noteElement,
                                                         platform::Error* error = nullptr);

    // The files written beside the page: their names, each with the hash of its attachment.
    [[nodiscard]] const QMap<QString, QString>& files() const { return m_files; }
    // The hashes of the attachments that the body shows.
    [[nodiscard]] const QSet<QString>& shownHashes() const { return m_shownHashes; }
    // The places that name an attachment which the note does not hold.
    [[nodiscard]] quint64 missingAttachments() const { return m_missingAttachments; }

    // What the person should know of the body that was rewritten, in their language.
    [[nodiscard]] QStringList warnings() const;
    // The same without the attachments that the body does not show.
    [[nodiscard]] QStringList bodyWarnings() const;

protected:
    // The name for an attachment's file, which nothing in the folder has. type: its uniform type.
    [[nodiscard]] virtual QString fileNameFor(const EvernoteXMLResource& resource,
                                              const QString& type);
    // How the page names a file.
    [[nodiscard]] virtual QString addressOf(const QString& fileName) const;
    // What stands in the page for a file that is no image.
    [[nodiscard]] virtual QString markupForFile(const QString& fileName) const;

    // A free name in the folder for a file that wants this one.
    [[nodiscard]] QString freeFileName(const QString& name)
    {
        return m_freeNames.freeName(name, m_folder);
    }

private:
    [[nodiscard]] std::optional<QString> replacementForMedia(const platform::XMLElement& tag,
                                                             platform::Error* error);
    [[nodiscard]] std::shared_ptr<EvernoteXMLResource>
    resourceWithHash(const std::optional<QString>& hash);

    const EvernoteXMLNote& m_note;
    QUrl m_folder;
    ImageSource m_imageSource;
    // By hash, the first of those that share one; made when the first tag asks.
    std::optional<QHash<QString, std::shared_ptr<EvernoteXMLResource>>> m_resources;
    QSet<QString> m_shownHashes;
    FreeFileNames m_freeNames;
    QMap<QString, QString> m_files;
    quint64 m_missingAttachments = 0;
    int m_encryptedPassages = 0;
};
