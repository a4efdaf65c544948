// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/ParagraphStyle.h"
#include "platform/attributedtext/TextAttributes.h"
#include "platform/htmlimport/CssColors.h"
#include "platform/htmlimport/CssLengths.h"

#include <QString>

#include <array>
#include <optional>
#include <string_view>

namespace platform::html {

enum class Display { None, Inline, Block };
enum class FontWeight { Normal, Bold, Bolder, Lighter };
enum class TextTransform { None, Uppercase, Lowercase, Capitalize };
// Code is the mode of code blocks: blanks are kept, line ends next to a block's edge are not.
enum class WhiteSpace { Normal, Pre, PreLine, Code };
enum class HorizontalAlign { Start, End, Left, Right, Center, Justify };
enum class VerticalShift { Baseline, Super, Sub };

// A font family that exists, chosen from a list; an empty name stands for the standard font.
struct FamilyChoice {
    QString family;
    bool monospaced = false;
};

struct FontSize {
    enum class Kind { Length, Medium, Parent }; // Medium and Parent: a factor of that size
    Kind kind = Kind::Length;
    css::Length length;
    double factor = 1;
};

struct Decoration {
    LineStyle underline = LineStyle::None;
    LineStyle strikethrough = LineStyle::None;
    std::optional<css::ColorValue> color;
};

struct LineHeight {
    double multiple = 0; // 0: as the length says, or the font's own
    std::optional<css::Length> length;
};

struct BorderSide {
    std::optional<css::Length> width;
    std::optional<bool> visible;
    std::optional<css::ColorValue> color;
};

// What one source of style (an element's defaults, its attributes, its style attribute) says.
// Absent values say nothing. Edges are indexed by TextEdge.
struct StyleDeclarations {
    std::optional<FamilyChoice> family;
    std::optional<FontSize> fontSize;
    std::optional<FontWeight> weight;
    std::optional<bool> italic;
    std::optional<css::ColorValue> color;
    std::optional<css::ColorValue> background;
    std::optional<Decoration> decoration;
    std::optional<VerticalShift> shift;
    std::optional<css::Length> baselineOffset;
    std::optional<css::Length> letterSpacing;
    std::optional<TextTransform> transform;
    std::optional<WhiteSpace> whiteSpace;
    std::optional<bool> hidden;

    std::optional<HorizontalAlign> textAlign;
    std::optional<TextVerticalAlignment> verticalAlign;
    std::optional<WritingDirection> direction;
    std::optional<LineHeight> lineHeight;
    std::optional<css::Length> textIndent;

    std::optional<Display> display;
    std::array<std::optional<css::Length>, 4> margin;
    std::array<std::optional<css::Length>, 4> padding;
    std::array<BorderSide, 4> border;
    std::optional<css::Length> width;
    std::optional<css::Length> height;
    std::optional<QString> listMarkerFormat; // as in TextList
    std::optional<bool> collapsesBorders;
    std::optional<bool> hidesEmptyCells;
    std::optional<css::Length> borderSpacing;

    // A coloured block that is more than one paragraph; no source says so, the element's content
    // does.
    bool isColoredPart = false;

    // Evernote's own notations.
    bool isChecklist = false;
    std::optional<bool> isChecked;
    bool isCodeBlock = false;
    std::optional<Color> highlight;

    // Values of the other take the place of these.
    void mergeOver(const StyleDeclarations& other);
};

// The meaning of a style attribute.
[[nodiscard]] StyleDeclarations parseStyle(std::string_view style);

// The parsers of groups of properties; each says whether the property is one of its own.
bool parseFontProperty(std::string_view name, std::string_view value, StyleDeclarations& style);
bool parseTextProperty(std::string_view name, std::string_view value, StyleDeclarations& style);
bool parseBoxProperty(std::string_view name, std::string_view value, StyleDeclarations& style);
bool parseEvernoteProperty(std::string_view name, std::string_view value, StyleDeclarations& style);

// The first family of a list that exists; none for a list that names nothing.
[[nodiscard]] std::optional<FamilyChoice> familyFromList(std::string_view list);

// The marker format of a list type by its CSS name ("lower-roman", "none"); none for an unknown
// one.
[[nodiscard]] std::optional<QString> markerFormatForListType(std::string_view type);

} // namespace platform::html
