// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlTag.h"

#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace platform::html {

namespace {

struct Name {
    std::string_view name;
    Tag tag;
};

// Sorted by name. The two names with x- are those that lists have while a damaged page is repaired.
constexpr Name names[] = {
    {"a", Tag::A},
    {"abbr", Tag::Abbr},
    {"address", Tag::Address},
    {"area", Tag::Area},
    {"article", Tag::Article},
    {"aside", Tag::Aside},
    {"audio", Tag::Audio},
    {"b", Tag::B},
    {"base", Tag::Base},
    {"bdo", Tag::Bdo},
    {"big", Tag::Big},
    {"blockquote", Tag::Blockquote},
    {"body", Tag::Body},
    {"br", Tag::Br},
    {"button", Tag::Button},
    {"caption", Tag::Caption},
    {"center", Tag::Center},
    {"cite", Tag::Cite},
    {"code", Tag::Code},
    {"col", Tag::Col},
    {"colgroup", Tag::Colgroup},
    {"dd", Tag::Dd},
    {"del", Tag::Del},
    {"details", Tag::Details},
    {"dfn", Tag::Dfn},
    {"dir", Tag::Dir},
    {"div", Tag::Div},
    {"dl", Tag::Dl},
    {"dt", Tag::Dt},
    {"em", Tag::Em},
    {"embed", Tag::Embed},
    {"en-note", Tag::EnNote},
    {"fieldset", Tag::Fieldset},
    {"figcaption", Tag::Figcaption},
    {"figure", Tag::Figure},
    {"font", Tag::Font},
    {"footer", Tag::Footer},
    {"form", Tag::Form},
    {"frame", Tag::Frame},
    {"h1", Tag::H1},
    {"h2", Tag::H2},
    {"h3", Tag::H3},
    {"h4", Tag::H4},
    {"h5", Tag::H5},
    {"h6", Tag::H6},
    {"head", Tag::Head},
    {"header", Tag::Header},
    {"hr", Tag::Hr},
    {"html", Tag::Html},
    {"i", Tag::I},
    {"iframe", Tag::Iframe},
    {"img", Tag::Img},
    {"input", Tag::Input},
    {"ins", Tag::Ins},
    {"kbd", Tag::Kbd},
    {"label", Tag::Label},
    {"legend", Tag::Legend},
    {"li", Tag::Li},
    {"link", Tag::Link},
    {"listing", Tag::Listing},
    {"main", Tag::Main},
    {"map", Tag::Map},
    {"mark", Tag::Mark},
    {"menu", Tag::Menu},
    {"meta", Tag::Meta},
    {"nav", Tag::Nav},
    {"noscript", Tag::Noscript},
    {"object", Tag::Object},
    {"ol", Tag::Ol},
    {"optgroup", Tag::Optgroup},
    {"option", Tag::Option},
    {"p", Tag::P},
    {"param", Tag::Param},
    {"picture", Tag::Picture},
    {"plaintext", Tag::Plaintext},
    {"pre", Tag::Pre},
    {"q", Tag::Q},
    {"s", Tag::S},
    {"samp", Tag::Samp},
    {"script", Tag::Script},
    {"search", Tag::Search},
    {"section", Tag::Section},
    {"select", Tag::Select},
    {"small", Tag::Small},
    {"source", Tag::Source},
    {"span", Tag::Span},
    {"strike", Tag::Strike},
    {"strong", Tag::Strong},
    {"style", Tag::Style},
    {"sub", Tag::Sub},
    {"summary", Tag::Summary},
    {"sup", Tag::Sup},
    {"svg", Tag::Svg},
    {"table", Tag::Table},
    {"tbody", Tag::Tbody},
    {"td", Tag::Td},
    {"template", Tag::Template},
    {"textarea", Tag::Textarea},
    {"tfoot", Tag::Tfoot},
    {"th", Tag::Th},
    {"thead", Tag::Thead},
    {"title", Tag::Title},
    {"tr", Tag::Tr},
    {"track", Tag::Track},
    {"tt", Tag::Tt},
    {"u", Tag::U},
    {"ul", Tag::Ul},
    {"var", Tag::Var},
    {"video", Tag::Video},
    {"x-ol", Tag::Ol},
    {"x-ul", Tag::Ul},
    {"xmp", Tag::Xmp},
};

static_assert(std::is_sorted(std::begin(names), std::end(names),
                             [](const Name& one, const Name& other) {
                                 return one.name < other.name;
                             }));

constexpr std::size_t longestName = 10;

std::string_view textView(const xmlChar* text)
{
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

} // namespace

std::string_view nameOf(const xmlNode* node)
{
    return textView(node->name);
}

Tag tagOf(const xmlNode* element)
{
    const std::string_view name = nameOf(element);
    std::array<char, longestName> letters{};
    if (name.size() > longestName)
        return Tag::Unknown;
    std::transform(name.begin(), name.end(), letters.begin(), css::folded);
    const std::string_view lowerCase(letters.data(), name.size());
    const auto* const found =
        std::lower_bound(std::begin(names), std::end(names), lowerCase,
                         [](const Name& entry, std::string_view key) { return entry.name < key; });
    return found != std::end(names) && found->name == lowerCase ? found->tag : Tag::Unknown;
}

bool isList(Tag tag)
{
    return tag == Tag::Ul || tag == Tag::Ol || tag == Tag::Menu || tag == Tag::Dir;
}

bool isTablePart(Tag tag)
{
    switch (tag) {
    case Tag::Table:
    case Tag::Caption:
    case Tag::Tbody:
    case Tag::Thead:
    case Tag::Tfoot:
    case Tag::Tr:
    case Tag::Td:
    case Tag::Th:
        return true;
    default:
        return false;
    }
}

bool isCell(Tag tag)
{
    return tag == Tag::Td || tag == Tag::Th;
}

std::string_view valueOf(const xmlAttr* attribute)
{
    return attribute->children ? textView(attribute->children->content) : std::string_view();
}

std::optional<std::string_view> attribute(const xmlNode* element, const char* name)
{
    for (const xmlAttr* one = element->properties; one; one = one->next) {
        if (css::equalsFolded(textView(one->name), name))
            return valueOf(one);
    }
    return std::nullopt;
}

} // namespace platform::html
