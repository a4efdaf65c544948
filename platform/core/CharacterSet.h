// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

struct USet;

namespace platform {

// A set of Unicode characters, by their code points. Unpaired surrogates count as characters of their own.
class CharacterSet {
public:
    // Categories Cc and Cf: controls and invisible format characters, line feeds and joiners among them.
    [[nodiscard]] static const CharacterSet& controlCharacters();
    // What Unicode has not assigned, noncharacters included. Surrogates are assigned.
    [[nodiscard]] static const CharacterSet& illegalCharacters();

    [[nodiscard]] static CharacterSet charactersInString(const QString& characters);

    [[nodiscard]] bool contains(char32_t character) const;

private:
    explicit CharacterSet(std::shared_ptr<USet> set)
        : m_set(std::move(set))
    {
    }
    [[nodiscard]] static CharacterSet fromPattern(QStringView pattern);

    std::shared_ptr<USet> m_set; // frozen, so that copies and threads can share it
};

// The sets below are of single UTF-16 code units: every member is in the Basic Multilingual Plane.


// Horizontal tab and Unicode's blanks: 09, 20, A0, 1680, 2000 to 200B, 202F, 205F, 3000.
[[nodiscard]] bool isWhitespaceCharacter(char16_t unit);
// Line ends: 0A to 0D, 85, 2028, 2029.
[[nodiscard]] bool isNewlineCharacter(char16_t unit);
[[nodiscard]] bool isWhitespaceOrNewlineCharacter(char16_t unit);

// The text without white space and line ends at both ends.
[[nodiscard]] QStringView trimmedOfWhitespaceAndNewlines(QStringView text);

} // namespace platform
