// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::css {

// One declaration of a style attribute. The name is in lower case, except that of a custom property
// (--en-highlight), which keeps its case. The views live as long as the Declarations object.
struct Declaration {
    std::string_view name;
    std::string_view value; // trimmed, without !important
    bool important = false;
};

// The declarations of a style attribute in the order of the cascade: important ones last. Reads
// like a browser: a declaration that makes no sense is skipped up to its semicolon and spoils
// nothing else; semicolons in quotes, brackets and url() do not count; comments are blanks.
class Declarations {
public:
    explicit Declarations(std::string_view style);
    Declarations(const Declarations&) = delete;
    Declarations& operator=(const Declarations&) = delete;

    [[nodiscard]] const std::vector<Declaration>& all() const { return m_declarations; }

private:
    void read(std::string_view declaration);

    std::string m_text; // without comments, names folded
    std::vector<Declaration> m_declarations;
};

// The parts of a value: words, quoted strings and functions whole, each comma and slash by itself.
// More than a few dozen parts are no value that means anything; what follows them is left out.
[[nodiscard]] std::vector<std::string_view> valueParts(std::string_view value);

// The text of a word or quoted string, with its escapes resolved.
[[nodiscard]] std::string unquoted(std::string_view part);

// The name and the arguments of a function such as rgb(1, 2, 3); both empty for anything else.
struct Function {
    std::string_view name;
    std::string_view arguments;
};
[[nodiscard]] Function functionIn(std::string_view part);

[[nodiscard]] bool isBlank(char character);
[[nodiscard]] std::string_view trimmed(std::string_view text);
[[nodiscard]] char folded(char character);
// Compares letters of ASCII without their case; the second must be in lower case.
[[nodiscard]] bool equalsFolded(std::string_view text, std::string_view lowerCase);

} // namespace platform::css
