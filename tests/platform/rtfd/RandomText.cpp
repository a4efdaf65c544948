// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"

using namespace platform;

namespace test {

namespace {

class Generator {
public:
    explicit Generator(std::mt19937& random)
        : m_random(random)
    {
        for (int list = 0; list < 4; ++list) {
            static const char* const formats[] = {"{disc}", "{decimal}.", "({lower-alpha})",
                                                  "{upper-roman}:", ""};
            auto made = std::make_shared<TextList>();
            made->markerFormat = QString::fromLatin1(formats[below(5)]);
            made->startingItemNumber = 1 + below(3);
            m_lists.push_back(made);
        }
    }

    AttributedString text()
    {
        for (int part = 1 + below(8); part > 0; --part) {
            if (below(4) == 0)
                table({}, 1 + below(2));
            else
                paragraph(style(), {}, Terminator::Always);
        }
        if (below(2) == 0)
            paragraph(style(), {}, Terminator::Never);
        return std::move(m_text);
    }

private:
    using Blocks = std::vector<std::shared_ptr<const TextBlock>>;
    enum class Terminator { Always, Never };

    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    bool sometimes(int oneIn = 3) { return below(oneIn) == 0; }
    double halves(int limit) { return below(limit * 2) / 2.0; }
    double twips(int limit) { return below(limit) / 20.0; }
    std::optional<Color> color()
    {
        if (sometimes(2))
            return std::nullopt;
        Color made = Color::fromRgb8(below(256), below(256), below(256), sometimes() ? below(256) / 255.0 : 1);
        made.space = sometimes() ? Color::Space::CalibratedRgb : Color::Space::DeviceRgb;
        return made;
    }

    QString words()
    {
        static const char16_t* const pieces[] = {u"word ",  u"Grüße", u"\\{}",       u"\t",     u"\u2028",
                                                 u"\u00A0", u"日本",  u"\U0001F600", u"–“”…•",  u"\u0085",
                                                 u"\x07",   u"\f",    u"fin",        u"\u2029", u"\r",
                                                 u"-1 2",   u"'e9",   u"\u0081",     u"\uFFFC"};
        QString made;
        for (int count = below(5); count > 0; --count)
            made += QString::fromUtf16(pieces[below(19)]);
        // Halves of a pair that is none.
        if (sometimes(10))
            made += QChar(0xD83D);
        if (sometimes(10))
            made += QChar(0xDE00);
        return made;
    }

    TextAttributes attributes()
    {
        static const char* const families[] = {"Helvetica", "Helvetica Neue", "Times New Roman", "Menlo",
                                               "Georgia",   "Courier",        "Monaco",          "Arial"};
        TextAttributes made;
        made.font = Font::fontNamed(QString::fromLatin1(families[below(8)]), 8 + halves(20));
        made.font->bold = sometimes();
        made.font->italic = sometimes();
        if (sometimes(5))
            made.font->size = 10.125;
        made.foregroundColor = color();
        made.backgroundColor = color();
        made.underline = static_cast<LineStyle>(below(4));
        made.strikethrough = static_cast<LineStyle>(below(4));
        made.underlineColor = color();
        made.strikethroughColor = color();
        made.superscript = sometimes() ? below(5) - 2 : 0;
        made.baselineOffset = sometimes() ? halves(8) - 4 : 0;
        made.kern = sometimes() ? twips(80) - 2 : 0;
        if (sometimes())
            made.link = sometimes(2) ? QStringLiteral("https://example.org/a?b=c%20d")
                                     : QStringLiteral("mailto:a@b");
        return made;
    }

    ParagraphStyle style()
    {
        ParagraphStyle made;
        if (sometimes())
            return made;
        made.alignment = static_cast<TextAlignment>(below(5));
        made.direction = static_cast<WritingDirection>(below(3));
        made.firstLineHeadIndent = twips(2000);
        made.headIndent = twips(2000);
        made.tailIndent = twips(2000) - 50;
        made.paragraphSpacing = twips(300);
        made.paragraphSpacingBefore = twips(300);
        made.lineSpacing = sometimes() ? twips(300) : 0;
        made.lineHeightMultiple = sometimes() ? 1 + below(8) / 8.0 : 0;
        made.minimumLineHeight = sometimes() ? twips(600) : 0;
        made.maximumLineHeight = sometimes() ? twips(600) : sometimes() ? made.minimumLineHeight : 0;
        made.defaultTabInterval = sometimes(2) ? 36 : 0;
        made.hyphenationFactor = sometimes(6) ? 1 : 0;
        made.headerLevel = sometimes() ? below(7) : 0;
        for (int count = below(4); count > 0; --count) {
            static constexpr TextAlignment kinds[] = {TextAlignment::Left, TextAlignment::Right,
                                                      TextAlignment::Center};
            made.tabStops.push_back({kinds[below(3)], twips(9000)});
        }
        if (sometimes(2)) {
            for (int depth = 1 + below(3); depth > 0; --depth)
                made.textLists.push_back(m_lists[static_cast<std::size_t>(below(4))]);
            // A list does not stand within itself.
            std::sort(made.textLists.begin(), made.textLists.end());
            made.textLists.erase(std::unique(made.textLists.begin(), made.textLists.end()),
                                 made.textLists.end());
        }
        return made;
    }

    void paragraph(ParagraphStyle style, const Blocks& blocks, Terminator terminator)
    {
        style.textBlocks = blocks;
        const bool isItem = !style.textLists.empty() && sometimes(2);
        std::shared_ptr<const ParagraphStyle> shared;
        if (!(style == ParagraphStyle()))
            shared = std::make_shared<const ParagraphStyle>(std::move(style));
        const auto append = [&](const QString& text, TextAttributes made) {
            made.paragraphStyle = shared;
            m_text.append(text, made);
        };
        if (isItem) {
            append(QStringLiteral("\t"), attributes());
            append(QStringLiteral("•2."), attributes());
            append(QStringLiteral("\t"), attributes());
        }
        for (int runs = below(4); runs > 0; --runs)
            append(words(), attributes());
        if (terminator == Terminator::Never)
            return;
        TextAttributes last = attributes();
        // A cell's end stands outside of links.
        if (!blocks.empty())
            last.link.clear();
        append(QStringLiteral("\n"), last);
    }

    void table(const Blocks& outer, int depth)
    {
        auto made = std::make_shared<TextTable>();
        made->columns = 1 + below(4);
        made->collapsesBorders = sometimes(2);
        made->hidesEmptyCells = sometimes(2);
        made->backgroundColor = color();
        for (std::size_t edge = 0; edge < 4; ++edge) {
            made->borderWidth[edge] = sometimes() ? twips(100) : 0;
            if (sometimes())
                made->borderColor[edge] = color();
        }
        if (sometimes(2))
            made->width = TextLength{twips(9000), TextLength::Unit::Points};
        const int rows = 1 + below(3);
        std::vector<int> coveredRows(static_cast<std::size_t>(made->columns), 0);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < made->columns; ++column) {
                int& covered = coveredRows[static_cast<std::size_t>(column)];
                if (covered > 0) {
                    --covered;
                    continue;
                }
                auto cell = block();
                cell->table = made;
                cell->row = row;
                cell->column = column;
                // The last column keeps a cell of its own in every row, so that no row is empty.
                if (column + 1 < made->columns && sometimes())
                    cell->rowSpan = 1 + below(rows - row);
                covered = cell->rowSpan - 1;
                if (cell->rowSpan == 1 && column + 1 < made->columns
                    && coveredRows[static_cast<std::size_t>(column) + 1] == 0 && column + 2 <= made->columns
                    && sometimes()) {
                    cell->columnSpan = 2;
                    ++column;
                }
                fill(cell, outer, depth);
            }
        }
        // Two tables that touch are told apart; a table and the next cell need a paragraph between them.
        if (outer.empty())
            paragraph(style(), {}, Terminator::Always);
    }

    std::shared_ptr<TextBlock> block()
    {
        auto made = std::make_shared<TextBlock>();
        if (sometimes(2))
            made->width = TextLength{sometimes(2) ? twips(5000) : below(100) / 2.0,
                                     sometimes(2) ? TextLength::Unit::Points : TextLength::Unit::Percent};
        if (made->width && made->width->unit == TextLength::Unit::Percent)
            made->width->value = below(200) / 2.0;
        if (sometimes())
            made->height = TextLength{1 + twips(2000), TextLength::Unit::Points};
        for (std::size_t edge = 0; edge < 4; ++edge) {
            made->padding[edge] = sometimes(2) ? twips(200) : 0;
            made->margin[edge] = sometimes(2) ? twips(200) : 0;
            made->borderWidth[edge] = sometimes(2) ? twips(100) : 0;
            if (sometimes(2))
                made->borderColor[edge] = color();
        }
        made->backgroundColor = color();
        made->verticalAlignment = static_cast<TextVerticalAlignment>(below(4));
        return made;
    }

    void fill(const std::shared_ptr<TextBlock>& cell, Blocks blocks, int depth)
    {
        blocks.push_back(cell);
        for (int count = 1 + below(2); count > 0; --count)
            paragraph(style(), blocks, Terminator::Always);
        if (depth > 1 && sometimes(2)) {
            table(blocks, depth - 1);
            if (sometimes(2))
                paragraph(style(), blocks, Terminator::Always);
        }
    }

    std::mt19937& m_random;
    std::vector<std::shared_ptr<const TextList>> m_lists;
    AttributedString m_text;
};

} // namespace

AttributedString randomText(std::mt19937& random)
{
    return Generator(random).text();
}

} // namespace test
