// SPDX-License-Identifier: MIT
#pragma once

#include "convert/EvernoteXMLItem.h"

#include <QStringList>
#include <QUrl>

// A note that becomes a page in a folder: "Title.html", and, where it has attachments, beside it
// their folder "Title.resources".
//
// In the page an image is an img element, any other attachment a link whose text is its file's
// name, and that name stands nowhere before its link, so that whoever looks for it finds the link.
// Addresses are relative and percent-encoded. Checkboxes are box texts. A note that is nothing but
// one attachment is a body that is nothing but its image or link, and the file is named after the
// note. An attachment that the body does not show lies in the folder all the same.
class NotePage : public EvernoteXMLItem {
public:
    explicit NotePage(const QUrl& directoryURL);

    // Writes the page; the record has no meaning.
    [[nodiscard]] platform::manifest::Record
    itemDictInGroup(const platform::manifest::Record& groupDict,
                    platform::Error* error = nullptr) override;

private:
    // In the note's folder, each without a folder itself.
    struct Names {
        QString page;
        QString resources;
    };

    [[nodiscard]] Names freeNames() const;
    [[nodiscard]] std::optional<QString> bodyOfSingleAttachment(const Names& names);
    [[nodiscard]] std::optional<QString> body(platform::XMLElement& element, const Names& names,
                                              platform::Error* error);
    [[nodiscard]] QString resourcesFolder(const Names& names) const;
};
