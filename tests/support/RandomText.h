// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <random>

namespace test {

// Texts that no person types, the same ones in every run: letters, blanks, line ends, separators, combining
// marks, controls, characters beyond the Basic Multilingual Plane, unpaired surrogates, noncharacters.
class RandomText {
public:
    explicit RandomText(unsigned seed)
        : m_engine(seed)
    {
    }

    // 0 to maximumLength UTF-16 code units.
    [[nodiscard]] QString next(int maximumLength);

    [[nodiscard]] int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_engine); }

private:
    void appendCharacter(QString& text);

    std::mt19937 m_engine;
};

} // namespace test
