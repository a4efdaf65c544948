// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using test::import;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

TEST(HostilePageTest, AHundredThousandNestedElementsKeepTheirText)
{
    for (const char* tag :
         {"div", "b", "span", "ul", "blockquote", "table", "font", "unknown", "pre"}) {
        const QByteArray start = "<" + QByteArray(tag) + ">";
        const QByteArray end = "</" + QByteArray(tag) + ">";
        const auto text = import("<html><body>a" + start.repeated(100000) + "x" +
                                 end.repeated(100000) + "b</body></html>");
        EXPECT_EQ(text.string().count(u'x'), 1) << tag;
        EXPECT_TRUE(text.string().contains(u'a')) << tag;
        EXPECT_TRUE(text.string().contains(u'b')) << tag;
    }
}

TEST(HostilePageTest, NestingWithoutAnyEndKeepsItsText)
{
    for (const char* tags : {"<div>", "<ul><li>", "<ol><ul>", "<table><tr><td>", "<a href=x>",
                             "<b><i>", "<p><b>", "<select><option>"}) {
        const auto text = import("<html><body>" + (QByteArray(tags) + "x").repeated(20000) + "z");
        EXPECT_EQ(text.string().count(u'x'), 20000) << tags;
        EXPECT_EQ(text.string().count(u'z'), 1) << tags;
    }
}

TEST(HostilePageTest, NestingThatHidesFromTheRepairKeepsItsText)
{
    for (const char* tags :
         {"<b><td></b>", "<div><table></div>", "<div></x>", "<b><p></b>", "<i><li></i>"}) {
        const auto text = import("<html><body>" + (QByteArray(tags) + "x").repeated(50000) + "z");
        EXPECT_EQ(text.string().count(u'x'), 50000) << tags;
        EXPECT_EQ(text.string().count(u'z'), 1) << tags;
    }
}

TEST(HostilePageTest, EndTagsAloneAreNothing)
{
    EXPECT_EQ(import("<html><body>" + QByteArray("<div>").repeated(500) +
                     QByteArray("</p></x></b>").repeated(100000) + "z")
                  .string(),
              s("z\n"));
}

TEST(HostilePageTest, AStyleOfTenMegabytes)
{
    const QByteArray declarations = QByteArray("color:red;nonsense;").repeated(600000);
    EXPECT_EQ(test::at(import("<div style=\"" + declarations + "color:blue\">x</div>"), "x")
                  .foregroundColor,
              (platform::Color{0, 0, 1}));
    const QByteArray value(10000000, 'a');
    EXPECT_EQ(import("<div style=\"font-family:" + value + "\">x</div>").string(), s("x\n"));
    EXPECT_EQ(import("<div style=\"" + QByteArray("a:'").repeated(3000000) + "\">x</div>").string(),
              s("x\n"));
    EXPECT_EQ(
        import("<div style=\"" + QByteArray("a:(;").repeated(3000000) + "\">x</div>").string(),
        s("x\n"));
    EXPECT_EQ(import("<div style=\"" + QByteArray("/*").repeated(3000000) + "\">x</div>").string(),
              s("x\n"));
}

TEST(HostilePageTest, ManyDifferentStyles)
{
    QByteArray html;
    for (int index = 0; index < 20000; ++index)
        html += "<div style='margin-left:" + QByteArray::number(index) + "px'>x</div>";
    EXPECT_EQ(import("<html><body>" + html + "</body></html>").string().count(u'x'), 20000);
}

TEST(HostilePageTest, StyledBlocksInsideDeepLists)
{
    const QByteArray html = QByteArray("<ul><li>").repeated(190) +
                            QByteArray("<div style='text-align:right'>x</div>").repeated(50000);
    EXPECT_EQ(import("<html><body>" + html).string().count(u'x'), 50000);
}

TEST(HostilePageTest, HugeSpans)
{
    const QByteArray cell = "<td colspan='999999999' rowspan='999999999'>x</td>";
    EXPECT_EQ(import("<table>" + ("<tr>" + cell.repeated(10) + "</tr>").repeated(1000) + "</table>")
                  .string()
                  .count(u'x'),
              10000);
    EXPECT_EQ(import("<table><colgroup span='999999999'></colgroup>" +
                     QByteArray("<col span='999999'/>").repeated(10000) +
                     "<tr><td>x</td></tr></table>")
                  .string(),
              s("x\n"));
}

TEST(HostilePageTest, BytesWithoutMeaning)
{
    QByteArray noise;
    std::uint32_t state = 1;
    for (int index = 0; index < 300000; ++index) {
        state = state * 1664525U + 1013904223U;
        noise += static_cast<char>(state >> 24);
    }
    (void)import(noise);
    (void)import("<p>" + noise);
    (void)import("<p style='" + noise + "'>x");
    EXPECT_EQ(import(QByteArray(100000, '\0')).string(), QString(100000, QChar(0xFFFD)) + u'\n');
    EXPECT_EQ(import(QByteArray(100000, '\xFF')).string(), QString(100000, QChar(0xFFFD)) + u'\n');
}

// Pages cut off and shuffled at random: nothing is expected but an end, and sound text.
TEST(HostilePageTest, ShuffledMarkup)
{
    const std::vector<QByteArray> pieces = {"<div>",
                                            "</div>",
                                            "<ul>",
                                            "</ul>",
                                            "<ol start='3'>",
                                            "</ol>",
                                            "<li>",
                                            "</li>",
                                            "<table>",
                                            "</table>",
                                            "<tr>",
                                            "</tr>",
                                            "<td rowspan='2'>",
                                            "<td colspan='3'>",
                                            "</td>",
                                            "<caption>",
                                            "</caption>",
                                            "<tfoot>",
                                            "</tfoot>",
                                            "<col width='3'>",
                                            "<colgroup>",
                                            "<p>",
                                            "</p>",
                                            "<br>",
                                            "<hr>",
                                            "<b>",
                                            "</b>",
                                            "<a href='x:y'>",
                                            "</a>",
                                            "<pre>",
                                            "</pre>",
                                            "<h1>",
                                            "</h1>",
                                            "\n",
                                            " ",
                                            "text",
                                            "\u2610 ",
                                            "<div style='--en-codeblock:true'>",
                                            "<ul style='--en-todo:true'>",
                                            "<li style='--en-checked:true'>",
                                            "<img src='data:image/png;base64,AAAA'>",
                                            "<img src='x'>",
                                            "<q>",
                                            "</q>",
                                            "<bdo dir='rtl'>",
                                            "</bdo>",
                                            "<blockquote style='border:1px solid'>",
                                            "</blockquote>",
                                            "<select>",
                                            "<option>",
                                            "<textarea>",
                                            "</textarea>",
                                            "<svg>",
                                            "</svg>",
                                            "<li style='display:inline'>",
                                            "<td style='display:inline'>",
                                            "<table style='display:inline'>",
                                            "<span style='display:block'>",
                                            "</span>",
                                            "<input type=checkbox>",
                                            "<dl>",
                                            "<dt>",
                                            "<dd>",
                                            "<sup>",
                                            "</sup>",
                                            "<div style='white-space:pre'>",
                                            "<!--",
                                            "-->",
                                            "&nbsp;",
                                            "&",
                                            "<",
                                            "<td",
                                            "'",
                                            "\""};
    std::uint32_t state = 12345;
    for (int round = 0; round < 3000; ++round) {
        QByteArray html = round % 2 == 0 ? "<html><body>" : "";
        for (int count = 0; count < 60; ++count) {
            state = state * 1664525U + 1013904223U;
            html += pieces[(state >> 10) % pieces.size()];
        }
        (void)import(html);
        if (HasFailure()) {
            FAIL() << html.constData();
        }
    }
}

// The same with well-formed nesting, which no repair puts in order.
TEST(HostilePageTest, ShuffledTrees)
{
    const std::vector<QByteArray> names = {
        "div",     "ul",         "ol",   "li", "table", "tr",  "td",    "th",     "tbody", "tfoot",
        "caption", "colgroup",   "col",  "p",  "h2",    "pre", "b",     "a",      "q",     "br",
        "hr",      "blockquote", "span", "dl", "dd",    "img", "input", "object", "video"};
    const std::vector<QByteArray> attributes = {"",
                                                "",
                                                " style='display:block'",
                                                " style='display:inline'",
                                                " style='border:1px solid;padding:2px'",
                                                " style='--en-todo:true'",
                                                " style='--en-codeblock:true'",
                                                " rowspan='3' colspan='2'",
                                                " href='x:y'",
                                                " style='visibility:hidden'",
                                                " style='display:none'",
                                                " dir='rtl'",
                                                " src='x'"};
    std::uint32_t state = 99;
    const auto random = [&state](std::size_t below) {
        state = state * 1664525U + 1013904223U;
        return (state >> 10) % below;
    };
    for (int round = 0; round < 3000; ++round) {
        QByteArray html = "<html><body>";
        std::vector<QByteArray> open;
        for (int count = 0; count < 60; ++count) {
            const std::size_t choice = random(5);
            if (choice < 2) {
                open.push_back(names[random(names.size())]);
                html += "<" + open.back() + attributes[random(attributes.size())] + ">";
            } else if (choice < 4 && !open.empty()) {
                html += "</" + open.back() + ">";
                open.pop_back();
            } else {
                html += random(2) == 0 ? "te  xt" : " \n ";
            }
        }
        for (; !open.empty(); open.pop_back())
            html += "</" + open.back() + ">";
        (void)import(html + "</body></html>");
        if (HasFailure()) {
            FAIL() << html.constData();
        }
    }
}

} // namespace
