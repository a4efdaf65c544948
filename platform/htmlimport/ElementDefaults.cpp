// SPDX-License-Identifier: MIT
#include "platform/htmlimport/ElementDefaults.h"

#include <array>

namespace platform::html {

namespace {

constexpr std::size_t tagCount = static_cast<std::size_t>(Tag::Count);
using Table = std::array<StyleDeclarations, tagCount>;

constexpr css::Length em(double value)
{
    return {value, css::Length::Unit::Em};
}
constexpr css::Length pixels(double value)
{
    return {value, css::Length::Unit::Points};
}
FontSize times(double factor)
{
    return {FontSize::Kind::Parent, {}, factor};
}

class Builder {
public:
    explicit Builder(Table& table)
        : m_table(table)
    {
    }

    template <typename Function>
    void each(std::initializer_list<Tag> tags, Function function)
    {
        for (const Tag tag : tags)
            function(m_table[static_cast<std::size_t>(tag)]);
    }

private:
    Table& m_table;
};

void setVerticalMargins(StyleDeclarations& style, css::Length length)
{
    style.margin[static_cast<std::size_t>(TextEdge::Top)] = length;
    style.margin[static_cast<std::size_t>(TextEdge::Bottom)] = length;
}

void setSideMargins(StyleDeclarations& style, css::Length left, css::Length right)
{
    style.margin[static_cast<std::size_t>(TextEdge::Left)] = left;
    style.margin[static_cast<std::size_t>(TextEdge::Right)] = right;
}

void addInlineElements(Builder& builder)
{
    builder.each({Tag::B, Tag::Strong}, [](auto& style) { style.weight = FontWeight::Bold; });
    builder.each({Tag::I, Tag::Em, Tag::Cite, Tag::Dfn, Tag::Var, Tag::Address},
                 [](auto& style) { style.italic = true; });
    builder.each({Tag::U, Tag::Ins},
                 [](auto& style) { style.decoration = Decoration{LineStyle::Single}; });
    builder.each({Tag::S, Tag::Strike, Tag::Del}, [](auto& style) {
        style.decoration = Decoration{LineStyle::None, LineStyle::Single};
    });
    builder.each(
        {Tag::Code, Tag::Kbd, Tag::Samp, Tag::Tt, Tag::Pre, Tag::Listing, Tag::Xmp, Tag::Plaintext},
        [](auto& style) { style.family = familyFromList("monospace"); });
    builder.each({Tag::Small}, [](auto& style) { style.fontSize = times(1 / 1.2); });
    builder.each({Tag::Big}, [](auto& style) { style.fontSize = times(1.2); });
    builder.each({Tag::Sub, Tag::Sup}, [](auto& style) { style.fontSize = times(1 / 1.2); });
    builder.each({Tag::Sub}, [](auto& style) { style.shift = VerticalShift::Sub; });
    builder.each({Tag::Sup}, [](auto& style) { style.shift = VerticalShift::Super; });
    builder.each({Tag::Mark}, [](auto& style) { style.background = css::colorFrom("yellow"); });
}

void addBlockElements(Builder& builder)
{
    builder.each({Tag::Html,     Tag::Body,     Tag::EnNote,     Tag::Div,    Tag::P,
                  Tag::H1,       Tag::H2,       Tag::H3,         Tag::H4,     Tag::H5,
                  Tag::H6,       Tag::Address,  Tag::Article,    Tag::Aside,  Tag::Blockquote,
                  Tag::Center,   Tag::Dd,       Tag::Details,    Tag::Dir,    Tag::Dl,
                  Tag::Dt,       Tag::Fieldset, Tag::Figcaption, Tag::Figure, Tag::Footer,
                  Tag::Form,     Tag::Header,   Tag::Hr,         Tag::Legend, Tag::Li,
                  Tag::Listing,  Tag::Main,     Tag::Menu,       Tag::Nav,    Tag::Ol,
                  Tag::Optgroup, Tag::Option,   Tag::Plaintext,  Tag::Pre,    Tag::Search,
                  Tag::Section,  Tag::Select,   Tag::Summary,    Tag::Table,  Tag::Caption,
                  Tag::Tbody,    Tag::Thead,    Tag::Tfoot,      Tag::Tr,     Tag::Td,
                  Tag::Th,       Tag::Textarea, Tag::Ul,         Tag::Xmp},
                 [](auto& style) { style.display = Display::Block; });
    builder.each(
        {Tag::P, Tag::Blockquote, Tag::Figure, Tag::Pre, Tag::Listing, Tag::Xmp, Tag::Plaintext},
        [](auto& style) { setVerticalMargins(style, em(1)); });
    builder.each({Tag::Blockquote, Tag::Figure},
                 [](auto& style) { setSideMargins(style, pixels(40), pixels(40)); });
    builder.each({Tag::Dd}, [](auto& style) { setSideMargins(style, pixels(40), pixels(0)); });
    builder.each({Tag::Pre, Tag::Listing, Tag::Xmp, Tag::Plaintext, Tag::Textarea},
                 [](auto& style) { style.whiteSpace = WhiteSpace::Pre; });
    builder.each({Tag::Center, Tag::Caption, Tag::Th},
                 [](auto& style) { style.textAlign = HorizontalAlign::Center; });
    builder.each({Tag::Th}, [](auto& style) { style.weight = FontWeight::Bold; });
}

void addHeadings(Builder& builder)
{
    struct Heading {
        Tag tag;
        double size;
        double margin; // of its own font's size
    };
    constexpr std::array<Heading, 6> headings = {{
        {Tag::H1, 2, 0.67},
        {Tag::H2, 1.5, 0.83},
        {Tag::H3, 1.17, 1},
        {Tag::H4, 1, 1.33},
        {Tag::H5, 0.83, 1.67},
        {Tag::H6, 0.67, 2.33},
    }};
    for (const Heading& heading : headings) {
        builder.each({heading.tag}, [&heading](auto& style) {
            style.fontSize = times(heading.size);
            style.weight = FontWeight::Bold;
            setVerticalMargins(style, em(heading.margin));
        });
    }
}

Table makeTable()
{
    Table table;
    Builder builder(table);
    addInlineElements(builder);
    addBlockElements(builder);
    addHeadings(builder);
    return table;
}

} // namespace

const StyleDeclarations& elementDefaults(Tag tag)
{
    static const Table table = makeTable();
    return table[static_cast<std::size_t>(tag)];
}

int headerLevelOf(Tag tag)
{
    const int level = static_cast<int>(tag) - static_cast<int>(Tag::H1) + 1;
    return level >= 1 && level <= 6 ? level : 0;
}

bool isNeverShown(Tag tag)
{
    switch (tag) {
    case Tag::Head:
    case Tag::Title:
    case Tag::Style:
    case Tag::Script:
    case Tag::Meta:
    case Tag::Link:
    case Tag::Base:
    case Tag::Template:
    case Tag::Param:
    case Tag::Source:
    case Tag::Track:
    case Tag::Area:
        return true;
    default:
        return false;
    }
}

} // namespace platform::html
