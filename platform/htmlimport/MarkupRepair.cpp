// SPDX-License-Identifier: MIT
#include "platform/htmlimport/MarkupRepair.h"

#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace platform::html {

namespace {

constexpr std::size_t deepestNesting = 600;

// Elements that cannot hold another, or that end where the next one of their kind begins.
constexpr std::array<std::string_view, 27> neverNesting = {
    "area",  "base", "br",   "col",  "dd",     "dt",    "embed", "hr",       "img",
    "input", "li",   "link", "meta", "option", "p",     "param", "source",   "track",
    "wbr",   "td",   "th",   "tr",   "tbody",  "thead", "tfoot", "colgroup", "a",
};

constexpr std::array<std::string_view, 4> keptWhenFlat = {"br", "hr", "img", "input"};

bool isNameCharacter(char character)
{
    const char letter = css::folded(character);
    return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') || letter == '-' ||
           letter == ':';
}

template <std::size_t Count>
bool isAmong(std::string_view name, const std::array<std::string_view, Count>& names)
{
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view one) { return css::equalsFolded(name, one); });
}

bool nests(std::string_view name)
{
    return !isAmong(name, neverNesting);
}

bool areEqual(std::string_view one, std::string_view other)
{
    return std::equal(
        one.begin(), one.end(), other.begin(), other.end(),
        [](char left, char right) { return css::folded(left) == css::folded(right); });
}

bool isList(std::string_view name)
{
    return css::equalsFolded(name, "ul") || css::equalsFolded(name, "ol");
}

// The position after the tag that begins at start; quotes are heeded if they close.
std::size_t endOfTag(std::string_view text, std::size_t start)
{
    for (std::size_t position = start; position < text.size(); ++position) {
        const char character = text[position];
        if (character == '>')
            return position + 1;
        if ((character == '"' || character == '\'') && position > start &&
            text[position - 1] == '=') {
            const std::size_t end = text.find(character, position + 1);
            if (end == std::string_view::npos)
                return std::min(text.find('>', position), text.size() - 1) + 1;
            position = end;
        }
    }
    return text.size();
}

class Repair {
public:
    Repair(std::string_view text, Nesting nesting, std::string& storage)
        : m_text(text)
        , m_nesting(nesting)
        , m_storage(storage)
    {
    }

    void run();

private:
    void copyUntil(std::size_t end);
    void takeOut(std::size_t start, std::size_t end);
    [[nodiscard]] std::size_t dropTitle(std::size_t start);
    void startTag(std::string_view name, std::size_t start, std::size_t end);
    void endTag(std::string_view name, std::size_t start, std::size_t end);

    std::string_view m_text;
    Nesting m_nesting;
    std::string& m_storage;
    std::size_t m_copied = 0;
    std::vector<std::string_view> m_open;
    bool m_hasTitle = false;
    std::size_t m_dropped = 0; // start tags taken out and not ended yet
};

void Repair::copyUntil(std::size_t end)
{
    m_storage += m_text.substr(m_copied, end - m_copied);
    m_copied = end;
}

void Repair::takeOut(std::size_t start, std::size_t end)
{
    copyUntil(start);
    m_copied = end;
}

// A title's text is no markup, whatever it looks like, but the parser would take it for some.
std::size_t Repair::dropTitle(std::size_t start)
{
    const std::size_t end = m_text.find("</title", start);
    if (end == std::string_view::npos)
        return start;
    takeOut(start, end);
    return end;
}

void Repair::startTag(std::string_view name, std::size_t start, std::size_t end)
{
    if (nests(name)) {
        const bool isClosed = m_text.substr(0, end).ends_with("/>");
        if (m_open.size() >= deepestNesting) {
            m_dropped += isClosed ? 0 : 1;
            takeOut(start, end);
            return;
        }
        if (!isClosed)
            m_open.push_back(name);
    }
    if (isList(name)) {
        copyUntil(start + 1);
        m_storage += "x-";
    }
}

void Repair::endTag(std::string_view name, std::size_t start, std::size_t end)
{
    if (nests(name)) {
        if (m_dropped > 0) {
            --m_dropped;
            takeOut(start, end);
            return;
        }
        const auto opened =
            std::find_if(m_open.rbegin(), m_open.rend(),
                         [name](std::string_view one) { return areEqual(one, name); });
        if (opened != m_open.rend())
            m_open.erase(std::prev(opened.base()), m_open.end());
    }
    if (isList(name)) {
        copyUntil(start + 2);
        m_storage += "x-";
    }
}

void Repair::run()
{
    std::size_t position = 0;
    while ((position = m_text.find('<', position)) != std::string_view::npos) {
        const std::size_t start = position++;
        if (m_text.substr(start, 4) == "<!--") {
            const std::size_t end = m_text.find("-->", start + 4);
            position = end == std::string_view::npos ? m_text.size() : end + 3;
            continue;
        }
        const bool isEnd = position < m_text.size() && m_text[position] == '/';
        const std::size_t nameStart = position + (isEnd ? 1 : 0);
        std::size_t nameEnd = nameStart;
        while (nameEnd < m_text.size() && isNameCharacter(m_text[nameEnd]))
            ++nameEnd;
        if (nameEnd == nameStart)
            continue;
        const std::string_view name = m_text.substr(nameStart, nameEnd - nameStart);
        position = endOfTag(m_text, nameEnd);
        if (m_nesting == Nesting::Flat && !isAmong(name, keptWhenFlat)) {
            takeOut(start, position);
            m_storage += ' ';
        } else if (isEnd) {
            endTag(name, start, position);
        } else {
            startTag(name, start, position);
        }
        if (!isEnd && !m_hasTitle && css::equalsFolded(name, "title")) {
            m_hasTitle = true;
            position = dropTitle(position);
        }
    }
    copyUntil(m_text.size());
}

} // namespace

void repairMarkup(std::string_view text, Nesting nesting, std::string& repaired)
{
    repaired.clear();
    repaired.reserve(text.size() + text.size() / 16);
    Repair(text, nesting, repaired).run();
}

} // namespace platform::html
