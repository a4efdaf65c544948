// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextAttributes.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

// A part of a string, in UTF-16 code units.
struct TextRange {
    qsizetype location = 0;
    qsizetype length = 0;
    [[nodiscard]] qsizetype end() const { return location + length; }
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

// Text with attributes on runs of it. A value; copies share their text and attributes until one of
// them changes. All positions are in UTF-16 code units.
//
// A range that does not lie within the text throws std::out_of_range, as the platform raises.
class AttributedString {
public:
    static constexpr char16_t attachmentCharacter = u'\uFFFC';

    // A longest stretch of text with equal attributes. Runs cover the text without gaps.
    struct Run {
        TextRange range;
        std::shared_ptr<const TextAttributes> attributes;
    };

    AttributedString() = default;
    explicit AttributedString(const QString& string, const TextAttributes& attributes = {});
    // One attachment character and nothing else about it.
    [[nodiscard]] static AttributedString
    withAttachment(std::shared_ptr<TextAttachment> attachment);

    [[nodiscard]] const QString& string() const { return m_string; }
    [[nodiscard]] qsizetype length() const { return m_string.size(); }
    [[nodiscard]] bool isEmpty() const { return m_string.isEmpty(); }

    // The attributes at a position and, when asked, the whole run that has them.
    [[nodiscard]] const TextAttributes& attributesAt(qsizetype location,
                                                     TextRange* effectiveRange = nullptr) const;
    [[nodiscard]] AttributedString substring(TextRange range) const;
    // The runs in order.
    [[nodiscard]] std::vector<Run> runs() const;

    void append(QStringView text, const TextAttributes& attributes);
    // For builders that give many pieces the same attributes: no copy of them is made.
    void append(QStringView text, const std::shared_ptr<const TextAttributes>& attributes);
    void append(const AttributedString& other);
    void replaceCharacters(TextRange range, const AttributedString& replacement);
    // The new text takes the attributes of the first character that it replaces, or of the
    // character before it when nothing is replaced.
    void replaceCharacters(TextRange range, QStringView replacement);
    // Many replacements in one pass. Their ranges ascend without overlapping and count in the text
    // as it is before; ranges that do not throw, too, and leave the text as it was.
    struct Replacement;
    void replaceCharacters(const std::vector<Replacement>& replacements);
    void deleteCharacters(TextRange range);

    // Calls the function on the attributes of every run in the range.
    void changeAttributes(TextRange range, const std::function<void(TextAttributes&)>& change);
    // The same for many ranges in one pass; they ascend without overlapping.
    void changeAttributes(const std::vector<TextRange>& ranges,
                          const std::function<void(TextAttributes&)>& change);
    void setParagraphStyle(TextRange range, std::shared_ptr<const ParagraphStyle> style);

    // The line (or paragraph) that holds the range: from its start to its end, terminator included.
    [[nodiscard]] TextRange lineRangeFor(TextRange range) const;

    // Same text and equal attributes everywhere.
    friend bool operator==(const AttributedString& left, const AttributedString& right);

private:
    struct Segment {
        qsizetype end = 0; // position after the segment
        std::shared_ptr<const TextAttributes> attributes;
    };

    using Segments = QList<Segment>; // shared between copies, as the string is

    void checkRange(TextRange range) const;
    [[nodiscard]] qsizetype segmentAt(qsizetype location) const;
    qsizetype splitAt(qsizetype location);
    void joinEqualSegments(qsizetype first, qsizetype last);
    void replaceSegments(TextRange range, const Segments& replacement, qsizetype replacementLength);

    QString m_string;
    Segments m_segments; // ordered by end; the last end is the text's length
};

struct AttributedString::Replacement {
    TextRange range;
    AttributedString text;
};

} // namespace platform
