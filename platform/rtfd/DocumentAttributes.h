// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"

#include <QString>

#include <optional>

namespace platform {

// What rich text says about the document as a whole. Lengths in points. An absent or empty value is
// not written, and was not in the file that was read.
struct DocumentAttributes {
    // The paper's colour, behind all text.
    std::optional<Color> backgroundColor;

    std::optional<double> paperWidth;
    std::optional<double> paperHeight;
    std::optional<double> leftMargin;
    std::optional<double> rightMargin;
    std::optional<double> topMargin;
    std::optional<double> bottomMargin;

    // The size of the area that shows the text, without the window round it.
    std::optional<double> viewWidth;
    std::optional<double> viewHeight;
    std::optional<int> viewKind;  // 0: as wide as the window, 1: pages
    std::optional<int> viewScale; // per cent

    std::optional<double> defaultTabInterval;
    std::optional<double> hyphenationFactor; // 0 to 1

    QString title;
    QString subject;
    QString author;
    QString company;
    QString copyright;
    QString keywords;
    QString comment;

    friend bool operator==(const DocumentAttributes&, const DocumentAttributes&) = default;
};

} // namespace platform
