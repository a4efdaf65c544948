// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfFontTable.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfTextEscapes.h"

namespace platform {

namespace {

// The family classes that Cocoa gives; it calls all other fonts \fnil. A reader that lacks the font
// picks another of its class, so fixed pitch is always told.
const char* familyClass(const QString& family, bool monospaced)
{
    if (monospaced)
        return "\\fmodern";
    if (family.startsWith(QLatin1String("Helvetica")) || family.startsWith(QLatin1String("Arial")))
        return family == QLatin1String("Helvetica Neue") ? "\\fnil" : "\\fswiss";
    if (family.startsWith(QLatin1String("Times")))
        return "\\froman";
    return "\\fnil";
}

// Entries on a line of the table, as Cocoa breaks it.
constexpr qsizetype entriesPerLine = 3;

} // namespace

int RtfFontTable::indexOf(const Font& font)
{
    const bool isLast =
        m_lastIndex >= 0 && font.bold == m_lastFace.bold && font.italic == m_lastFace.italic &&
        font.monospaced == m_lastFace.monospaced && font.family == m_lastFace.family;
    if (isLast)
        return m_lastIndex;
    const Face face{font.family, font.bold, font.italic, font.monospaced};
    m_lastFace = face;
    if (const auto known = m_indexByFace.constFind(face); known != m_indexByFace.cend())
        return m_lastIndex = *known;

    RtfOutput written;
    written.append(familyClass(font.family, font.monospaced)).append("\\fcharset0 ");
    QString name = font.fontName();
    name.remove(u';'); // ends the entry
    appendRtfName(written, name);
    const QByteArray entry = written.view().toByteArray();
    auto known = m_indexByEntry.constFind(entry);
    if (known == m_indexByEntry.cend()) {
        known = m_indexByEntry.insert(entry, static_cast<int>(m_entries.size()));
        m_entries.append(entry);
    }
    m_indexByFace.insert(face, *known);
    return m_lastIndex = *known;
}

void RtfFontTable::write(RtfOutput& out) const
{
    out.append("{\\fonttbl");
    for (qsizetype index = 0; index < m_entries.size(); ++index) {
        appendControl(out, "\\f", index);
        out.append(m_entries.at(index)).append(';');
        if (index % entriesPerLine == entriesPerLine - 1)
            out.append('\n');
    }
    out.append("}\n");
}

} // namespace platform
