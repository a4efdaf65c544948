// SPDX-License-Identifier: MIT
#include "platform/attributedtext/AttributedString.h"

#include <stdexcept>

namespace platform {

namespace {

using AttributesPointer = std::shared_ptr<const TextAttributes>;

const AttributesPointer& noAttributes()
{
    static const AttributesPointer none = std::make_shared<const TextAttributes>();
    return none;
}

bool areEqual(const AttributesPointer& left, const AttributesPointer& right)
{
    return left == right || *left == *right;
}

} // namespace

AttributedString::AttributedString(const QString& string, const TextAttributes& attributes)
{
    append(QStringView(string), attributes);
}

AttributedString AttributedString::withAttachment(std::shared_ptr<TextAttachment> attachment)
{
    TextAttributes attributes;
    attributes.attachment = std::move(attachment);
    return AttributedString(QString(QChar(attachmentCharacter)), attributes);
}

void AttributedString::checkRange(TextRange range) const
{
    // Subtracted rather than added, so that no length overflows.
    if (range.location < 0 || range.length < 0 || range.location > length() ||
        range.length > length() - range.location)
        throw std::out_of_range("AttributedString: the range does not lie within the text");
}

// The index of the segment that holds the character at a location; the count of segments at the
// end.
qsizetype AttributedString::segmentAt(qsizetype location) const
{
    const auto after = [](qsizetype position, const Segment& segment) {
        return position < segment.end;
    };
    return std::upper_bound(m_segments.cbegin(), m_segments.cend(), location, after) -
           m_segments.cbegin();
}

// Makes a segment begin at the location and returns its index.
qsizetype AttributedString::splitAt(qsizetype location)
{
    const qsizetype index = segmentAt(location);
    if (index == m_segments.size())
        return index;
    const qsizetype start = index == 0 ? 0 : m_segments.at(index - 1).end;
    if (start == location)
        return index;
    m_segments.insert(index, Segment{location, m_segments.at(index).attributes});
    return index + 1;
}

// Joins equal neighbours among the segments from first to last, both included and clamped.
void AttributedString::joinEqualSegments(qsizetype first, qsizetype last)
{
    first = std::max<qsizetype>(first, 0);
    last = std::min(last, m_segments.size() - 1);
    if (first >= last)
        return;
    Segments joined;
    joined.reserve(last - first + 1);
    for (qsizetype index = first; index <= last; ++index) {
        const Segment& segment = m_segments.at(index);
        if (!joined.isEmpty() && areEqual(joined.constLast().attributes, segment.attributes))
            joined.last().end = segment.end;
        else
            joined.append(segment);
    }
    const qsizetype surplus = last - first + 1 - joined.size();
    if (surplus == 0)
        return;
    std::copy(joined.cbegin(), joined.cend(), m_segments.begin() + first);
    m_segments.remove(first + joined.size(), surplus);
}

const TextAttributes& AttributedString::attributesAt(qsizetype location,
                                                     TextRange* effectiveRange) const
{
    if (location < 0 || location >= length())
        throw std::out_of_range("AttributedString: the position does not lie within the text");
    const qsizetype index = segmentAt(location);
    const Segment& segment = m_segments.at(index);
    if (effectiveRange) {
        const qsizetype start = index == 0 ? 0 : m_segments.at(index - 1).end;
        *effectiveRange = {start, segment.end - start};
    }
    return *segment.attributes;
}

AttributedString AttributedString::substring(TextRange range) const
{
    checkRange(range);
    AttributedString result;
    if (range.length == 0)
        return result;
    result.m_string = m_string.mid(range.location, range.length);
    for (qsizetype index = segmentAt(range.location);; ++index) {
        const Segment& segment = m_segments.at(index);
        const qsizetype end = std::min(segment.end, range.end());
        result.m_segments.append(Segment{end - range.location, segment.attributes});
        if (end == range.end())
            return result;
    }
}

std::vector<AttributedString::Run> AttributedString::runs() const
{
    std::vector<Run> result;
    result.reserve(static_cast<std::size_t>(m_segments.size()));
    qsizetype start = 0;
    for (const Segment& segment : m_segments) {
        result.push_back({{start, segment.end - start}, segment.attributes});
        start = segment.end;
    }
    return result;
}

void AttributedString::append(QStringView text, const TextAttributes& attributes)
{
    if (!m_segments.isEmpty() && *m_segments.constLast().attributes == attributes)
        append(text, AttributesPointer(m_segments.constLast().attributes));
    else
        append(text, std::make_shared<const TextAttributes>(attributes));
}

void AttributedString::append(QStringView text, const AttributesPointer& attributes)
{
    if (text.isEmpty())
        return;
    const AttributesPointer& given = attributes ? attributes : noAttributes();
    m_string.append(text);
    if (!m_segments.isEmpty() && areEqual(m_segments.constLast().attributes, given))
        m_segments.last().end = m_string.size();
    else
        m_segments.append(Segment{m_string.size(), given});
}

void AttributedString::append(const AttributedString& other)
{
    if (isEmpty()) {
        *this = other;
        return;
    }
    // Copies, so that appending a string to itself is safe.
    const QString text = other.m_string;
    const Segments segments = other.m_segments;
    qsizetype start = 0;
    for (const Segment& segment : segments) {
        append(QStringView(text).mid(start, segment.end - start), segment.attributes);
        start = segment.end;
    }
}

// The segments' ends in the replacement count from its own start.
void AttributedString::replaceSegments(TextRange range, const Segments& replacement,
                                       qsizetype replacementLength)
{
    const qsizetype first = splitAt(range.location);
    const qsizetype last = splitAt(range.end());
    const qsizetype removed = last - first;
    if (removed > replacement.size())
        m_segments.remove(first, removed - replacement.size());
    else if (removed < replacement.size())
        m_segments.insert(first, replacement.size() - removed, Segment{});

    const auto place = m_segments.begin() + first;
    std::transform(replacement.cbegin(), replacement.cend(), place,
                   [range](const Segment& segment) {
                       return Segment{segment.end + range.location, segment.attributes};
                   });
    const qsizetype change = replacementLength - range.length;
    if (change != 0)
        std::for_each(place + replacement.size(), m_segments.end(),
                      [change](Segment& segment) { segment.end += change; });
    joinEqualSegments(first - 1, first + replacement.size());
}

void AttributedString::replaceCharacters(TextRange range, const AttributedString& replacement)
{
    checkRange(range);
    const QString text = replacement.m_string;
    const Segments segments = replacement.m_segments;
    m_string.replace(range.location, range.length, text);
    replaceSegments(range, segments, text.size());
}

void AttributedString::replaceCharacters(TextRange range, QStringView replacement)
{
    checkRange(range);
    Segments segments;
    if (!replacement.isEmpty()) {
        AttributesPointer attributes = noAttributes();
        if (!isEmpty()) {
            const bool takesOnesBefore = range.length == 0 && range.location > 0;
            attributes =
                m_segments.at(segmentAt(range.location - (takesOnesBefore ? 1 : 0))).attributes;
        }
        segments.append(Segment{replacement.size(), attributes});
    }
    // The view may show this very text.
    m_string.replace(range.location, range.length, replacement.toString());
    replaceSegments(range, segments, replacement.size());
}

void AttributedString::deleteCharacters(TextRange range)
{
    checkRange(range);
    m_string.remove(range.location, range.length);
    replaceSegments(range, {}, 0);
}

void AttributedString::changeAttributes(TextRange range,
                                        const std::function<void(TextAttributes&)>& change)
{
    checkRange(range);
    if (range.length == 0)
        return;
    // The changed runs are made first: a function that throws leaves the text as it was.
    Segments changed;
    qsizetype position = range.location;
    for (qsizetype index = segmentAt(position); position < range.end(); ++index) {
        const Segment& segment = m_segments.at(index);
        auto attributes = std::make_shared<TextAttributes>(*segment.attributes);
        change(*attributes);
        position = std::min(segment.end, range.end());
        const bool isAsBefore = *attributes == *segment.attributes;
        changed.append(
            Segment{position - range.location,
                    isAsBefore ? segment.attributes : AttributesPointer(std::move(attributes))});
    }
    replaceSegments(range, changed, range.length);
}

void AttributedString::setParagraphStyle(TextRange range,
                                         std::shared_ptr<const ParagraphStyle> style)
{
    changeAttributes(range,
                     [&style](TextAttributes& attributes) { attributes.paragraphStyle = style; });
}

bool operator==(const AttributedString& left, const AttributedString& right)
{
    const auto equalSegments = [](const AttributedString::Segment& one,
                                  const AttributedString::Segment& other) {
        return one.end == other.end && areEqual(one.attributes, other.attributes);
    };
    return left.m_string == right.m_string &&
           std::equal(left.m_segments.cbegin(), left.m_segments.cend(), right.m_segments.cbegin(),
                      right.m_segments.cend(), equalSegments);
}

} // namespace platform
