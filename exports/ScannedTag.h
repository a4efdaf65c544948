// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>
#include <vector>

// The start tag that a text begins with.
class ScannedTag {
public:
    // The text must outlive the object.
    explicit ScannedTag(std::string_view text)
        : m_text(text)
    {
    }

    // False when the text begins with no start tag, when not all of one is there, when it is not
    // well-formed, and when its name or an attribute's is not plain ASCII without a prefix.
    [[nodiscard]] bool read();

    [[nodiscard]] std::string_view name() const { return m_name; }
    // The element ends with its tag.
    [[nodiscard]] bool isEmpty() const { return m_isEmpty; }
    // In bytes.
    [[nodiscard]] qsizetype length() const { return static_cast<qsizetype>(m_position); }

    // The attribute's value, references to the predefined entities replaced; empty for none.
    [[nodiscard]] QString attribute(std::string_view name) const;

private:
    struct Attribute {
        std::string_view name;
        std::string_view value;
    };

    [[nodiscard]] char current() const
    {
        return m_position < m_text.size() ? m_text[m_position] : '\0';
    }
    [[nodiscard]] std::string_view readName();
    // Whether there was any.
    bool readWhiteSpace();
    [[nodiscard]] bool readAttribute();
    [[nodiscard]] bool readValue(std::string_view* value);

    std::string_view m_text;
    std::size_t m_position = 0;
    std::string_view m_name;
    std::vector<Attribute> m_attributes;
    bool m_isEmpty = false;
};
