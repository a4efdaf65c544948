// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Font.h"
#include "platform/rtfd/RtfOutput.h"

#include <QHash>

namespace platform {

// The fonts of a document in the order of their first use. Faces are separate entries, under their
// PostScript names; sizes are not.
class RtfFontTable {
public:
    // The number of the font's face.
    [[nodiscard]] int indexOf(const Font& font);
    // The whole \fonttbl group.
    void write(RtfOutput& out) const;

private:
    struct Face {
        QString family;
        bool bold = false;
        bool italic = false;
        bool monospaced = false;
        friend bool operator==(const Face&, const Face&) = default;
        friend size_t qHash(const Face& face, size_t seed)
        {
            return qHashMulti(seed, face.family, face.bold, face.italic, face.monospaced);
        }
    };

    Face m_lastFace;
    int m_lastIndex = -1;
    QHash<Face, int> m_indexByFace;
    QHash<QByteArray, int> m_indexByEntry;
    QList<QByteArray> m_entries;
};

} // namespace platform
