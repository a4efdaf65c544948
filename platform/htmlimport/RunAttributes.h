// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/BlockStyle.h"
#include "platform/htmlimport/TextStyle.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace platform::html {

// Hands out the attributes of runs so that runs of the same styles share one object.
class RunAttributes {
public:
    using Pointer = std::shared_ptr<const TextAttributes>;
    using ParagraphStylePointer = std::shared_ptr<const ParagraphStyle>;

    [[nodiscard]] ParagraphStylePointer paragraphStyle(const BlockStylePointer& block,
                                                       const ParagraphTraits& traits);
    [[nodiscard]] Pointer of(const TextStylePointer& text, const ParagraphStylePointer& paragraph);
    // Of a paragraph's end.
    [[nodiscard]] Pointer plain(const TextStylePointer& text,
                                const ParagraphStylePointer& paragraph);

private:
    enum class Form { Full, Plain };
    struct Key {
        const TextStyle* text;
        const ParagraphStyle* paragraph;
        Form form;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    struct Entry {
        TextStylePointer text; // keeps the key's address taken
        Pointer attributes;
    };
    struct KnownParagraph {
        BlockStylePointer block;
        ParagraphTraits traits;
        ParagraphStylePointer style;
    };

    [[nodiscard]] Pointer lookUp(const TextStylePointer& text,
                                 const ParagraphStylePointer& paragraph, Form form);

    std::unordered_map<Key, Entry, KeyHash> m_attributes;
    std::vector<KnownParagraph> m_paragraphs; // the latest few
    std::size_t m_nextParagraph = 0;
};

} // namespace platform::html
