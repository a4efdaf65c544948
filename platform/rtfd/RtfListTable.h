// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextList.h"
#include "platform/rtfd/RtfOutput.h"

#include <QHash>
#include <QList>

#include <memory>
#include <vector>

namespace platform {

// The lists of a document. An entry of the table is a list with the lists inside it, one a level;
// where a list holds two different lists at the same level, the second stands in an entry of its
// own, which repeats the outer level under its template number, so that it is known to be the same
// list.
class RtfListTable {
public:
    struct Reference {
        int list = 0;  // \ls, from 1
        int level = 0; // \ilvl, from 0
    };

    // chain: outermost first, not empty. Levels beyond the fiftieth are left out.
    [[nodiscard]] Reference referenceTo(const std::vector<std::shared_ptr<const TextList>>& chain);

    [[nodiscard]] bool isEmpty() const { return m_entries.isEmpty(); }
    // The \listtable and \listoverridetable groups.
    void write(RtfOutput& out) const;

private:
    using Levels = QList<const TextList*>;

    void registerPrefixes(int entry, qsizetype firstLevel);
    void writeLevel(RtfOutput& out, const TextList& list, int level) const;

    QList<Levels> m_entries;
    QHash<Levels, int> m_entryByPrefix;
    QHash<const TextList*, int> m_templates;
};

} // namespace platform
