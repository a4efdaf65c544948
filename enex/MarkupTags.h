// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

// The tags of a body's markup, one after another, well-formed or not. Comments, CDATA sections,
// declarations and processing instructions are passed over. The markup, in UTF-8, must outlive the
// object and the tags.
class MarkupTags {
public:
    struct Tag {
        enum class Kind { Start, Empty, End };
        Kind kind;
        QByteArrayView name;
        // Bytes from the markup's beginning: of the "<", and of what follows the ">".
        qsizetype start;
        qsizetype end;
        // What stands between the name and the end of the tag.
        QByteArrayView attributes;

        // The value of an attribute as written, references included.
        [[nodiscard]] std::optional<QByteArrayView> attribute(QByteArrayView name) const;
    };

    explicit MarkupTags(QByteArrayView markup);

    // None at the end, and where a tag or a comment begins that nothing ends.
    [[nodiscard]] std::optional<Tag> next();

    // Whether there is nothing but white space, comments, declarations and processing instructions.
    [[nodiscard]] static bool holdNothing(QByteArrayView markup);

    // The end of what could be read: all of the markup, or where that tag or comment begins.
    [[nodiscard]] qsizetype readableEnd() const { return m_position; }

private:
    [[nodiscard]] bool passMarkupThatIsNoTag();
    [[nodiscard]] bool passUntil(QByteArrayView closer, qsizetype from);
    [[nodiscard]] qsizetype endOfTag() const;

    QByteArrayView m_markup;
    qsizetype m_position = 0;
    bool m_atEnd = false;
};
