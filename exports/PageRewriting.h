// SPDX-License-Identifier: MIT
#pragma once

#include "convert/ENMLRewriting.h"

#include <QString>
#include <QUrl>

// Rewrites a note's body for a page whose attachments lie in a folder beside it.
class PageRewriting : public ENMLRewriting {
public:
    // resourcesFolder: where the attachments go; it must exist when there are any. text: what the
    // page shows, in which no attachment's name may stand before its link.
    PageRewriting(const EvernoteXMLNote& note, const QUrl& resourcesFolder, const QString& text);

    // Writes an attachment under a name like the one wanted; none when it has no data. The markup
    // that shows it.
    [[nodiscard]] std::optional<QString> markupForAttachment(EvernoteXMLResource& resource,
                                                             const QString& wantedName);

    // Once the body is rewritten: the attachments that it does not show, so that they can be
    // missed. One whose data cannot be read becomes an empty file.
    [[nodiscard]] bool writeUnshownAttachments(platform::Error* error = nullptr);

protected:
    [[nodiscard]] QString fileNameFor(const EvernoteXMLResource& resource,
                                      const QString& type) override;
    [[nodiscard]] QString addressOf(const QString& fileName) const override;
    [[nodiscard]] QString markupForFile(const QString& fileName) const override;

private:
    // A free name without anything that a page or a file system takes amiss, and that the text does
    // not hold.
    [[nodiscard]] QString harmlessName(const QString& wanted, const QString& type);

    const EvernoteXMLNote& m_note;
    QString m_resourcesFolder;
    // What the page shows, the names of attachments so far included.
    QString m_text;
};
