// SPDX-License-Identifier: MIT
#pragma once

#include <libxml/tree.h>

#include <optional>
#include <string_view>

namespace platform::html {

// The elements that mean something here; all others are Unknown and shown as their content.
enum class Tag {
    Unknown,
    A,
    Abbr,
    Address,
    Area,
    Article,
    Aside,
    Audio,
    B,
    Base,
    Bdo,
    Big,
    Blockquote,
    Body,
    Br,
    Button,
    Caption,
    Center,
    Cite,
    Code,
    Col,
    Colgroup,
    Dd,
    Del,
    Details,
    Dfn,
    Dir,
    Div,
    Dl,
    Dt,
    Em,
    Embed,
    EnNote,
    Fieldset,
    Figcaption,
    Figure,
    Font,
    Footer,
    Form,
    Frame,
    H1,
    H2,
    H3,
    H4,
    H5,
    H6,
    Head,
    Header,
    Hr,
    Html,
    I,
    Iframe,
    Img,
    Input,
    Ins,
    Kbd,
    Label,
    Legend,
    Li,
    Link,
    Listing,
    Main,
    Map,
    Mark,
    Menu,
    Meta,
    Nav,
    Noscript,
    Object,
    Ol,
    Optgroup,
    Option,
    P,
    Param,
    Picture,
    Plaintext,
    Pre,
    Q,
    S,
    Samp,
    Script,
    Search,
    Section,
    Select,
    Small,
    Source,
    Span,
    Strike,
    Strong,
    Style,
    Sub,
    Summary,
    Sup,
    Svg,
    Table,
    Tbody,
    Td,
    Template,
    Textarea,
    Tfoot,
    Th,
    Thead,
    Title,
    Tr,
    Track,
    Tt,
    U,
    Ul,
    Var,
    Video,
    Xmp,
    Count
};

// Of an element's name, in any letter case.
[[nodiscard]] Tag tagOf(const xmlNode* element);

// ul, ol and their obsolete kin.
[[nodiscard]] bool isList(Tag tag);
// A table, its caption, its rows and cells and their groups.
[[nodiscard]] bool isTablePart(Tag tag);
[[nodiscard]] bool isCell(Tag tag);

// An attribute's value; empty for an attribute without one, none when there is no such attribute.
// The view lives as long as the node.
[[nodiscard]] std::optional<std::string_view> attribute(const xmlNode* element, const char* name);
[[nodiscard]] std::string_view valueOf(const xmlAttr* attribute);

[[nodiscard]] std::string_view nameOf(const xmlNode* node);

} // namespace platform::html
