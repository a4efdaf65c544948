// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfGroupTokens.h"
#include "platform/rtfd/RtfReadTables.h"

#include <cmath>

namespace platform {

namespace {

constexpr double wholeComponent = 100000;

// Five digits tell a component; one that came from 8 bits becomes what it was.
double component(qint32 scaled)
{
    const double value = std::clamp(scaled / wholeComponent, 0.0, 1.0);
    const double byte = std::round(value * 255);
    return std::lround(byte / 255 * wholeComponent) == scaled ? byte / 255 : value;
}

int byteComponent(qint32 number)
{
    return std::clamp(number, 0, 255);
}

// An entry of the table with exact values: a space and its components.
struct ExactEntry {
    QByteArray space;
    QList<qint32> components;

    [[nodiscard]] std::optional<Color> color() const
    {
        const auto at = [this](qsizetype index) {
            return component(components.value(index));
        };
        const auto alphaAt = [&](qsizetype index) {
            return index < components.size() ? at(index) : 1.0;
        };
        if (space == "cssrgb" && components.size() >= 3)
            return Color{at(0), at(1), at(2), alphaAt(3), Color::Space::DeviceRgb};
        if (space == "csgenericrgb" && components.size() >= 3)
            return Color{at(0), at(1), at(2), alphaAt(3), Color::Space::CalibratedRgb};
        if ((space == "csgray" || space == "csgenericgray") && !components.isEmpty())
            return Color{at(0), at(0), at(0), alphaAt(1)};
        // Other spaces are told near enough by the table of bytes.
        return std::nullopt;
    }
};

// Calls word for every word of the group and finish at every semicolon.
template <typename Word, typename Finish>
void readEntries(RtfTokenizer& tokens, const Word& word, const Finish& finish)
{
    RtfGroupTokens group(tokens);
    while (const RtfToken* token = group.next()) {
        switch (token->kind) {
        case RtfToken::Kind::GroupOpen:
            group.skipInnermost();
            break;
        case RtfToken::Kind::Word:
            word(*token);
            break;
        case RtfToken::Kind::Text:
            for (auto count = std::count(token->bytes.begin(), token->bytes.end(), ';'); count > 0;
                 --count)
                finish();
            break;
        default:
            break;
        }
    }
}

} // namespace

void RtfReadColors::readTable(RtfTokenizer& tokens)
{
    std::array<int, 3> bytes{};
    bool hasBytes = false;
    const auto word = [&](const RtfToken& token) {
        const std::size_t index = token.bytes == "red"     ? 0
                                  : token.bytes == "green" ? 1
                                  : token.bytes == "blue"  ? 2
                                                           : 3;
        if (index > 2)
            return;
        bytes[index] = byteComponent(token.number);
        hasBytes = true;
    };
    const auto finish = [&] {
        m_colors.append(hasBytes ? std::optional(Color::fromRgb8(bytes[0], bytes[1], bytes[2]))
                                 : std::nullopt);
        bytes = {};
        hasBytes = false;
    };
    readEntries(tokens, word, finish);
}

void RtfReadColors::readExpandedTable(RtfTokenizer& tokens)
{
    ExactEntry entry;
    const auto word = [&](const RtfToken& token) {
        if (token.bytes == "c")
            entry.components.append(token.number);
        else if (token.bytes.startsWith("cs"))
            entry.space = token.bytes.toByteArray();
    };
    const auto finish = [&] {
        m_exactColors.append(entry.color());
        entry = ExactEntry();
    };
    readEntries(tokens, word, finish);
}

std::optional<Color> RtfReadColors::color(int index) const
{
    if (index <= 0 || index >= m_colors.size())
        return std::nullopt;
    if (index < m_exactColors.size() && m_exactColors.at(index))
        return m_exactColors.at(index);
    return m_colors.at(index);
}

} // namespace platform
