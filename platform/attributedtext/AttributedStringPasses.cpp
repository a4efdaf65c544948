// SPDX-License-Identifier: MIT
//
// Changes of an AttributedString in many places. One after another they would each move all that
// stands behind them.
#include "platform/attributedtext/AttributedString.h"

#include <stdexcept>

namespace platform {

namespace {

void requireAscent(TextRange range, qsizetype end)
{
    if (range.location < end)
        throw std::out_of_range("AttributedString: the ranges overlap or do not ascend");
}

} // namespace

void AttributedString::replaceCharacters(const std::vector<Replacement>& replacements)
{
    AttributedString result;
    qsizetype position = 0;
    for (const Replacement& replacement : replacements) {
        checkRange(replacement.range);
        requireAscent(replacement.range, position);
        result.append(substring({position, replacement.range.location - position}));
        result.append(replacement.text);
        position = replacement.range.end();
    }
    result.append(substring({position, length() - position}));
    *this = std::move(result);
}

void AttributedString::changeAttributes(const std::vector<TextRange>& ranges,
                                        const std::function<void(TextAttributes&)>& change)
{
    qsizetype position = 0;
    for (const TextRange& range : ranges) {
        checkRange(range);
        requireAscent(range, position);
        position = range.end();
    }

    AttributedString result;
    auto range = ranges.begin();
    qsizetype start = 0;
    for (const Segment& segment : std::as_const(m_segments)) {
        while (start < segment.end) {
            while (range != ranges.end() && range->end() <= start)
                ++range;
            const bool isInside = range != ranges.end() && range->location <= start;
            qsizetype end = segment.end;
            if (range != ranges.end())
                end = std::min(end, isInside ? range->end() : range->location);
            std::shared_ptr<const TextAttributes> attributes = segment.attributes;
            if (isInside) {
                auto changed = std::make_shared<TextAttributes>(*attributes);
                change(*changed);
                if (!(*changed == *attributes))
                    attributes = std::move(changed);
            }
            result.append(QStringView(m_string).sliced(start, end - start), attributes);
            start = end;
        }
    }
    *this = std::move(result);
}

} // namespace platform
