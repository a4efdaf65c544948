// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

namespace platform {

// Gives the files of one folder names that any system can hold side by side. A name stays as it was
// preferred where it can. Names count as equal when they differ only in letter case or in how their
// accents are composed, because a Mac's disk takes them for one file.
class AttachmentNames {
public:
    explicit AttachmentNames(const QStringList& reservedNames = {});

    // A plain file name of at most 255 bytes of UTF-8, like no other that was given. "report.pdf"
    // comes out as it is the first time, then as "report-1.pdf".
    [[nodiscard]] QString uniqueName(const QString& preferredName);

    // The preferred name without what no file name may hold, cut before its extension where it is
    // too long; "Attachment" where nothing is left.
    [[nodiscard]] static QString safeName(const QString& preferredName);

private:
    [[nodiscard]] bool take(const QString& name);

    QSet<QString> m_taken; // in the form in which names compare
    QHash<QString, int> m_nextNumbers;
};

} // namespace platform
