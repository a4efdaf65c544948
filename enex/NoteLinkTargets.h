// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QUuid>

#include <optional>

// The notes of a file by their titles, for links that name a note by its title alone: a file does
// not say which identifiers its notes had. A note whose title no other bears is given the
// identifier of its item before the first is converted, so that a link can lead to a note that
// comes later.
//
// Takes about 100 bytes a note, however long the titles are.
class NoteLinkTargets {
public:
    // Titles above this length, in UTF-16 code units, are no link's text.
    static constexpr qsizetype longestTitle = 4096;

    // White space in titles and in links' texts counts as one blank, and not at their ends.
    void addNote(const QString& title);

    // The identifier of the item of the one note with that title, a UUID; none where there is no
    // such note, or more than one.
    [[nodiscard]] std::optional<QString> identifierForTitle(const QString& title) const;

private:
    // By a digest of the title; null for a title of several notes.
    QHash<QByteArray, QUuid> m_identifiers;
};
