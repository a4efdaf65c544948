// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLItemType.h"
#include "enex/EvernoteXMLNote.h"
#include "foundation/FreeFileNames.h"
#include "platform/attributedtext/AttributedString.h"
#include "platform/xml/XMLNode.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

// One note on its way from the parser to its file. It decides what the note becomes: a note that is
// nothing but one attachment becomes that attachment's file; a clipped page becomes a web archive,
// or failing that a note; every other note becomes a rich-text note file.
class EvernoteXMLItem : public EvernoteXMLNote {
public:
    // freeNames: of the folders that the note's files go to.
    explicit EvernoteXMLItem(const QUrl& directoryURL, std::shared_ptr<FreeFileNames> freeNames =
                                                           std::make_shared<FreeFileNames>());
    ~EvernoteXMLItem() override;

    // What a parser is given to make its notes. They share what is known of the names in their
    // folders, so that thousands of notes of one title take no longer than others.
    using Factory = std::function<std::unique_ptr<EvernoteXMLNote>(const QUrl& directoryURL)>;
    [[nodiscard]] static Factory factory();

    [[nodiscard]] platform::manifest::Record
    itemDictInGroup(const platform::manifest::Record& groupDict,
                    platform::Error* error = nullptr) override;

    // Writes the note's only attachment as a file named after the note; adds its type and place to
    // the record.
    [[nodiscard]] bool processSingleResource(const platform::manifest::Record& record,
                                             platform::Error* error = nullptr);

    // The body as markup without Evernote's own tags for attachments, or as a whole page; see
    // ENMLRewriting.
    [[nodiscard]] std::optional<QString>
    XHTMLStringFromNoteElement(const platform::XMLElement& element,
                               platform::Error* error = nullptr);
    [[nodiscard]] std::optional<QString>
    noteXHTMLStringFromNoteElement(const platform::XMLElement& element,
                                   platform::Error* error = nullptr);

    // Write the note's file and return its URL; none with an error. The scratch folder must exist.
    [[nodiscard]] std::optional<QUrl> createNoteForElement(const platform::XMLElement& element,
                                                           platform::Error* error = nullptr);
    [[nodiscard]] std::optional<QUrl>
    createWebArchiveForElement(const platform::XMLElement& element, bool refreshingFromWeb,
                               platform::Error* error = nullptr);

    // Stamps a file with the note's dates and tags and hides its extension. A file system that does
    // not keep them costs a line in the system's log.
    void setAttributesOnFile(const QUrl& file);

    // The library's folder for a kind of item; none for a number that is no kind.
    [[nodiscard]] static std::optional<QString> libraryFolderForType(int type);

    // This note's own folder while it is converted: its page and attachments.
    [[nodiscard]] const QUrl& intermediateHTMLDirectoryURL() const
    {
        return m_intermediateHTMLDirectoryURL;
    }
    void setIntermediateHTMLDirectoryURL(const QUrl& url) { m_intermediateHTMLDirectoryURL = url; }

    [[nodiscard]] const platform::manifest::Record& groupDict() const { return m_groupDict; }
    void setGroupDict(const platform::manifest::Record& group) { m_groupDict = group; }

protected:
    // The note's body, repaired where it is malformed.
    [[nodiscard]] std::optional<platform::XMLElement> noteElement(platform::Error* error);
    // The body is nothing but the note's only attachment.
    [[nodiscard]] bool isSingleAttachment(const platform::XMLElement& element) const;
    // The file name of the note's only attachment: the note's title with the attachment's
    // extension.
    [[nodiscard]] QString singleResourceName() const;
    // The setting for attachments that no body names.
    [[nodiscard]] static bool keepsUnshownAttachments();

private:
    [[nodiscard]] platform::manifest::Record newRecord() const;
    [[nodiscard]] bool isWebClip() const;
    [[nodiscard]] std::optional<QUrl> writeFile(const platform::XMLElement& element,
                                                QVariantMap& record, platform::Error* error);
    [[nodiscard]] std::optional<QUrl> writeWebClip(const platform::XMLElement& element,
                                                   QVariantMap& record, platform::Error* error);
    void countBody(const platform::XMLElement& body);
    // Counts the attachments that a file shows, and those that a body names in vain.
    void countAttachments(const QSet<QString>& shownHashes, quint64 missing);
    [[nodiscard]] quint64 countOfResources(const QSet<QString>& hashes) const;
    // Adds what the laid-out text does not show at its end, or says that it was left out.
    [[nodiscard]] bool keepHiddenAttachments(platform::AttributedString& text,
                                             platform::Error* error);
    // The folder that files of a kind go to.
    [[nodiscard]] QString targetFolderForType(int type) const;

    std::shared_ptr<FreeFileNames> m_freeNames;
    QUrl m_intermediateHTMLDirectoryURL;
    platform::manifest::Record m_groupDict;
    // The attachments' files that lie beside the note's page, each with the hash of its attachment.
    QMap<QString, QString> m_pageFiles;
    // Attachments that no body names but that are kept all the same.
    quint64 m_unshownAttachments = 0;
};
