// SPDX-License-Identifier: MIT
#include "platform/attributedtext/ArchivedAttributes.h"
#include "platform/attributedtext/ArchivedFields.h"

#include <array>

namespace platform {

namespace {

struct Length {
    const char* key;
    double ParagraphStyle::*member;
};
constexpr std::array<Length, 11> lengths = {{
    {"NSFirstLineHeadIndent", &ParagraphStyle::firstLineHeadIndent},
    {"NSHeadIndent", &ParagraphStyle::headIndent},
    {"NSTailIndent", &ParagraphStyle::tailIndent},
    {"NSParagraphSpacing", &ParagraphStyle::paragraphSpacing},
    {"NSParagraphSpacingBefore", &ParagraphStyle::paragraphSpacingBefore},
    {"NSLineSpacing", &ParagraphStyle::lineSpacing},
    {"NSLineHeightMultiple", &ParagraphStyle::lineHeightMultiple},
    {"NSMinLineHeight", &ParagraphStyle::minimumLineHeight},
    {"NSMaxLineHeight", &ParagraphStyle::maximumLineHeight},
    {"NSDefaultTabInterval", &ParagraphStyle::defaultTabInterval},
    {"NSHyphenationFactor", &ParagraphStyle::hyphenationFactor},
}};

// By their numbers.
constexpr std::array<TextAlignment, 5> alignments = {TextAlignment::Left, TextAlignment::Right,
                                                     TextAlignment::Center,
                                                     TextAlignment::Justified,
                                                     TextAlignment::Natural};
// From 1; the natural direction is left out.
constexpr std::array<WritingDirection, 3> directions = {WritingDirection::Natural,
                                                        WritingDirection::LeftToRight,
                                                        WritingDirection::RightToLeft};

constexpr int deepestHeader = 6;
constexpr qsizetype mostParts = 1000; // of one style; real ones have a handful

template<typename Value, std::size_t Count>
qint64 numberOf(Value value, const std::array<Value, Count>& values)
{
    return std::find(values.begin(), values.end(), value) - values.begin();
}

template<typename Value, std::size_t Count>
Value valueOf(double number, const std::array<Value, Count>& values)
{
    return values[number >= 0 && number < Count ? static_cast<std::size_t>(number) : 0];
}

ArchiveValue archivedTab(const TextTab& tab)
{
    ArchivedFields fields({QStringLiteral("NSTextTab"), QStringLiteral("NSObject")});
    if (tab.alignment != TextAlignment::Left)
        fields.addPlain("NSAlignment", numberOf(tab.alignment, alignments));
    fields.addPlain("NSLocation", tab.location);
    return fields.value();
}

ArchiveValue archivedList(const TextList& list)
{
    ArchivedFields fields({QStringLiteral("NSTextList"), QStringLiteral("NSObject")});
    fields.addObject("NSMarkerFormat", ArchiveValue::string(list.markerFormat));
    if (list.startingItemNumber != 1)
        fields.addPlain("NSStart", static_cast<qint64>(list.startingItemNumber));
    return fields.value();
}

void readTabs(const ArchiveValue& array, ParagraphStyle& style)
{
    for (const ArchiveValue& element : array.elements().first(
             std::min(array.elements().size(), mostParts))) {
        if (const ArchivedObject* const tab = archivedObjectOfClass(element, "NSTextTab"))
            style.tabStops.push_back({valueOf(archivedNumber(*tab, "NSAlignment"), alignments),
                                      archivedNumber(*tab, "NSLocation")});
    }
}

void readLists(const ArchiveValue& array, ParagraphStyle& style)
{
    for (const ArchiveValue& element : array.elements().first(
             std::min(array.elements().size(), mostParts))) {
        const ArchivedObject* const archived = archivedObjectOfClass(element, "NSTextList");
        if (!archived)
            continue;
        TextList list;
        list.markerFormat = archived->referenceForKey(QStringLiteral("NSMarkerFormat")).toText();
        if (archived->fieldForKey(QStringLiteral("NSStart")))
            list.startingItemNumber = static_cast<int>(archivedNumber(*archived, "NSStart"));
        style.textLists.push_back(std::make_shared<const TextList>(std::move(list)));
    }
}

} // namespace

ArchiveValue archivedParagraphStyle(const ParagraphStyle& style)
{
    ArchivedFields fields({QStringLiteral("NSParagraphStyle"), QStringLiteral("NSObject")});
    if (style.alignment != TextAlignment::Left)
        fields.addPlain("NSAlignment", numberOf(style.alignment, alignments));
    if (style.direction != WritingDirection::Natural)
        fields.addPlain("NSWritingDirection", numberOf(style.direction, directions));
    for (const Length& length : lengths)
        fields.addUnlessZero(length.key, style.*length.member);
    if (style.headerLevel > 0)
        fields.addPlain("NSHeaderLevel", static_cast<qint64>(style.headerLevel));

    // No array at all stands for the standard tab stops.
    QList<ArchiveValue> tabs;
    for (const TextTab& tab : style.tabStops)
        tabs.append(archivedTab(tab));
    const bool hasStandardTabs = tabs.isEmpty() && style.defaultTabInterval == 0;
    fields.addObject("NSTabStops",
                     hasStandardTabs ? ArchiveValue() : ArchiveValue::array(tabs));
    QList<ArchiveValue> lists;
    for (const auto& list : style.textLists) {
        if (list)
            lists.append(archivedList(*list));
    }
    if (!lists.isEmpty())
        fields.addObject("NSTextLists", ArchiveValue::array(lists));
    return fields.value();
}

std::optional<ParagraphStyle> paragraphStyleFromArchivedObject(const ArchiveValue& object)
{
    const ArchivedObject* const archived = archivedObjectOfClass(object, "NSParagraphStyle");
    if (!archived)
        return std::nullopt;
    ParagraphStyle style;
    style.alignment = valueOf(archivedNumber(*archived, "NSAlignment"), alignments);
    style.direction = valueOf(archivedNumber(*archived, "NSWritingDirection"), directions);
    for (const Length& length : lengths)
        style.*length.member = archivedNumber(*archived, length.key);
    const double level = archivedNumber(*archived, "NSHeaderLevel");
    style.headerLevel = static_cast<int>(std::clamp<double>(level, 0, deepestHeader));
    readTabs(archived->referenceForKey(QStringLiteral("NSTabStops")), style);
    readLists(archived->referenceForKey(QStringLiteral("NSTextLists")), style);
    return style;
}

} // namespace platform
