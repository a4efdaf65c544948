// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfListTable.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfTextEscapes.h"

namespace platform {

namespace {

constexpr qsizetype maximumLevels = 50;
// Template numbers of an entry's levels start at its own hundred.
constexpr int templatesPerEntry = 100;
// What \levelnfc calls a list with bullets.
constexpr int bulletKind = 23;

// The number format of \levelnfc; a bullet when the format counts nothing.
int numberKind(QStringView kind)
{
    if (kind == u"decimal")
        return 0;
    if (kind == u"upper-roman")
        return 1;
    if (kind == u"lower-roman")
        return 2;
    if (kind == u"upper-alpha" || kind == u"upper-latin")
        return 3;
    if (kind == u"lower-alpha" || kind == u"lower-latin")
        return 4;
    return bulletKind;
}

void appendCountedText(RtfOutput& out, qsizetype length)
{
    static constexpr char digits[] = "0123456789abcdef";
    const auto count = static_cast<unsigned>(std::min<qsizetype>(length, 255));
    const char escape[] = {'\\', '\'', digits[count >> 4], digits[count & 15]};
    out.append(escape, sizeof escape);
}

} // namespace

RtfListTable::Reference
RtfListTable::referenceTo(const std::vector<std::shared_ptr<const TextList>>& chain)
{
    Levels levels;
    for (const auto& list : chain) {
        if (list && levels.size() < maximumLevels)
            levels.append(list.get());
    }
    if (levels.isEmpty())
        return {};
    const auto level = static_cast<int>(levels.size() - 1);
    if (const auto known = m_entryByPrefix.constFind(levels); known != m_entryByPrefix.cend())
        return {*known + 1, level};

    // The entry that begins like this one takes the further levels, unless it has others there.
    for (qsizetype count = levels.size() - 1; count > 0; --count) {
        const auto known = m_entryByPrefix.constFind(levels.first(count));
        if (known == m_entryByPrefix.cend())
            continue;
        const int entry = *known;
        if (m_entries.at(entry).size() != count)
            break;
        m_entries[entry] = levels;
        registerPrefixes(entry, count);
        return {entry + 1, level};
    }
    m_entries.append(levels);
    const auto entry = static_cast<int>(m_entries.size() - 1);
    registerPrefixes(entry, 0);
    return {entry + 1, level};
}

void RtfListTable::registerPrefixes(int entry, qsizetype firstLevel)
{
    const Levels levels = m_entries.at(entry);
    for (qsizetype level = firstLevel; level < levels.size(); ++level) {
        const Levels prefix = levels.first(level + 1);
        if (!m_entryByPrefix.contains(prefix))
            m_entryByPrefix.insert(prefix, entry);
        const TextList* list = levels.at(level);
        if (!m_templates.contains(list))
            m_templates.insert(list, entry * templatesPerEntry + static_cast<int>(level) + 1);
    }
}

void RtfListTable::writeLevel(RtfOutput& out, const TextList& list, int level) const
{
    const QStringView format(list.markerFormat);
    const qsizetype open = format.indexOf(u'{');
    const qsizetype close = open < 0 ? -1 : format.indexOf(u'}', open);
    const QStringView kind = close < 0 ? QStringView() : format.sliced(open + 1, close - open - 1);
    const int number = numberKind(kind);

    out.append("{\\listlevel");
    appendControl(out, "\\levelnfc", number);
    appendControl(out, "\\levelnfcn", number);
    out.append("\\leveljc0\\leveljcn0\\levelfollow0");
    appendControl(out, "\\levelstartat", list.startingItemNumber);
    out.append("\\levelspace360\\levelindent0{\\*\\levelmarker ");
    appendRtfName(out, format.isEmpty() ? QStringView(u"{none}") : format);
    out.append("}{\\leveltext");
    appendControl(out, "\\leveltemplateid", m_templates.value(&list));
    if (number == bulletKind) {
        const QString marker = kind == u"none" ? QString() : list.markerForItemNumber(1);
        appendCountedText(out, marker.size());
        appendRtfMarker(out, marker);
        out.append(";}{\\levelnumbers;}");
    } else {
        // The number's place is a byte with its level; \levelnumbers tells where in the text it
        // stands.
        const QStringView before = format.first(open);
        const QStringView after = format.sliced(close + 1);
        appendCountedText(out, before.size() + 1 + after.size());
        appendRtfName(out, before);
        appendCountedText(out, level);
        appendRtfName(out, after);
        out.append(";}{\\levelnumbers");
        appendCountedText(out, before.size() + 1);
        out.append(";}");
    }
    const int indent = 720 * (level + 1);
    out.append("\\fi-360");
    appendControl(out, "\\li", indent);
    appendControl(out, "\\lin", indent);
    out.append(" }");
}

void RtfListTable::write(RtfOutput& out) const
{
    out.append("{\\*\\listtable");
    for (qsizetype entry = 0; entry < m_entries.size(); ++entry) {
        if (entry > 0)
            out.append('\n');
        appendControl(out, "{\\list\\listtemplateid", entry + 1);
        out.append("\\listhybrid");
        const Levels& levels = m_entries.at(entry);
        for (qsizetype level = 0; level < levels.size(); ++level)
            writeLevel(out, *levels.at(level), static_cast<int>(level));
        appendControl(out, "{\\listname ;}\\listid", entry + 1);
        out.append('}');
    }
    out.append("}\n{\\*\\listoverridetable");
    for (qsizetype entry = 0; entry < m_entries.size(); ++entry) {
        appendControl(out, "{\\listoverride\\listid", entry + 1);
        appendControl(out, "\\listoverridecount0\\ls", entry + 1);
        out.append('}');
    }
    out.append("}\n");
}

} // namespace platform
