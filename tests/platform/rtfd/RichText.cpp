// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"

#include "platform/rtfd/RtfReader.h"

#include <QHash>

using namespace platform;

namespace test {

QByteArray body(const QByteArray& rtf)
{
    const qsizetype paragraph = rtf.indexOf("\\pard");
    const qsizetype row = rtf.indexOf("\n\\itap");
    if (row >= 0 && row < paragraph)
        return rtf.mid(row);
    return paragraph < 0 ? QByteArray() : rtf.mid(paragraph);
}

TextAttributes plainAttributes()
{
    TextAttributes attributes;
    attributes.font = Font::userFont(12);
    return attributes;
}

AttributedString plain(const QString& text)
{
    return AttributedString(text, plainAttributes());
}

AttributedString inStyle(const QString& text, ParagraphStyle style)
{
    auto shared = std::make_shared<const ParagraphStyle>(std::move(style));
    return styled(text, [&](TextAttributes& attributes) { attributes.paragraphStyle = shared; });
}

AttributedString readRtf(const QByteArray& rtf, DocumentAttributes* attributes)
{
    Error error;
    const auto text = attributedStringFromRtf(rtf, attributes, &error);
    EXPECT_TRUE(text.has_value()) << qPrintable(error.description());
    return text.value_or(AttributedString());
}

AttributedString readBody(const QByteArray& body)
{
    return readRtf(
        "{\\rtf1\\ansi\\ansicpg1252\\cocoartf2639\n"
        "{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\fswiss\\fcharset0 Helvetica-Bold;}\n"
        "{\\colortbl;\\red255\\green255\\blue255;\\red255\\green0\\blue0;}\n{\\*\\expandedcolortbl;;}\n"
        + body + '}');
}

namespace {

// Numbers objects in the order in which they are first told.
class Description {
public:
    QString of(const AttributedString& text)
    {
        for (const AttributedString::Run& run : text.runs()) {
            m_out += u'"';
            m_out += QStringView(text.string()).mid(run.range.location, run.range.length);
            m_out += u'"';
            attributes(*run.attributes);
            m_out += u'\n';
        }
        return m_out;
    }

private:
    void attributes(const TextAttributes& attributes)
    {
        if (attributes.font) {
            const Font& font = *attributes.font;
            word("font", QStringLiteral("%1 %2%3%4")
                             .arg(font.family, QString::number(font.size, 'g', 10),
                                  QLatin1String(font.bold ? " bold" : ""),
                                  QLatin1String(font.italic ? " italic" : "")));
        }
        color("color", attributes.foregroundColor);
        color("background", attributes.backgroundColor);
        number("underline", static_cast<int>(attributes.underline));
        color("underlineColor", attributes.underlineColor);
        number("strike", static_cast<int>(attributes.strikethrough));
        color("strikeColor", attributes.strikethroughColor);
        number("superscript", attributes.superscript);
        number("offset", attributes.baselineOffset);
        number("kern", attributes.kern);
        if (!attributes.link.isEmpty())
            word("link", attributes.link);
        if (attributes.attachment)
            attachment(*attributes.attachment);
        // The standard style and none are the same.
        static const ParagraphStyle standard;
        if (attributes.paragraphStyle && !(*attributes.paragraphStyle == standard))
            paragraph(*attributes.paragraphStyle);
    }

    void paragraph(const ParagraphStyle& style)
    {
        m_out += u" ¶";
        number("align", static_cast<int>(style.alignment));
        number("direction", static_cast<int>(style.direction));
        number("first", style.firstLineHeadIndent);
        number("head", style.headIndent);
        number("tail", style.tailIndent);
        number("after", style.paragraphSpacing);
        number("before", style.paragraphSpacingBefore);
        number("leading", style.lineSpacing);
        number("multiple", style.lineHeightMultiple);
        number("minimum", style.minimumLineHeight);
        number("maximum", style.maximumLineHeight);
        number("interval", style.defaultTabInterval);
        number("hyphenation", style.hyphenationFactor);
        number("header", style.headerLevel);
        for (const TextTab& tab : style.tabStops)
            word("tab", QStringLiteral("%1@%2").arg(static_cast<int>(tab.alignment)).arg(tab.location));
        for (const auto& list : style.textLists)
            word("list",
                 numbered(list.get(),
                          QStringLiteral("%1 from %2").arg(list->markerFormat).arg(list->startingItemNumber)));
        for (const auto& block : style.textBlocks)
            word("block", numbered(block.get(), blockText(*block)));
    }

    QString blockText(const TextBlock& block)
    {
        Description inner;
        inner.number("row", block.row);
        inner.number("column", block.column);
        inner.number("rows", block.rowSpan);
        inner.number("columns", block.columnSpan);
        inner.length("width", block.width);
        inner.length("height", block.height);
        for (std::size_t edge = 0; edge < 4; ++edge) {
            inner.number("padding", block.padding[edge]);
            inner.number("border", block.borderWidth[edge]);
            inner.number("margin", block.margin[edge]);
            inner.color("borderColor", block.borderColor[edge]);
        }
        inner.color("fill", block.backgroundColor);
        inner.number("vertical", static_cast<int>(block.verticalAlignment));
        const TextTable& table = *block.table;
        Description own;
        own.number("columns", table.columns);
        own.number("collapses", table.collapsesBorders);
        own.number("hides", table.hidesEmptyCells);
        own.length("width", table.width);
        own.color("fill", table.backgroundColor);
        for (std::size_t edge = 0; edge < 4; ++edge) {
            own.number("border", table.borderWidth[edge]);
            own.color("borderColor", table.borderColor[edge]);
        }
        return inner.m_out + QStringLiteral(" table") + numbered(&table, own.m_out);
    }

    void attachment(const TextAttachment& attachment)
    {
        QString text = QStringLiteral("%1×%2").arg(attachment.size().width).arg(attachment.size().height);
        if (const auto& file = attachment.fileWrapper())
            text += u' ' + file->preferredFilename() + u' ' + QString::fromLatin1(file->contents().toHex());
        word("attachment", text);
    }

    void number(const char* name, double value)
    {
        if (value != 0)
            word(name, QString::number(value, 'g', 8));
    }

    void color(const char* name, const std::optional<Color>& value)
    {
        if (value)
            word(name, QStringLiteral("%1,%2,%3,%4/%5")
                           .arg(value->red)
                           .arg(value->green)
                           .arg(value->blue)
                           .arg(value->alpha)
                           .arg(static_cast<int>(value->space)));
    }

    void length(const char* name, const std::optional<TextLength>& value)
    {
        if (value)
            word(name, QString::number(value->value)
                           + QLatin1String(value->unit == TextLength::Unit::Percent ? "%" : "pt"));
    }

    QString numbered(const void* object, const QString& text)
    {
        const auto known = m_numbers.constFind(object);
        if (known != m_numbers.cend())
            return u'#' + QString::number(*known);
        m_numbers.insert(object, static_cast<int>(m_numbers.size()));
        return u'#' + QString::number(m_numbers.value(object)) + u'(' + text + u')';
    }

    void word(const char* name, const QString& value)
    {
        m_out += u' ' + QString::fromLatin1(name) + u'=' + value;
    }

    QString m_out;
    QHash<const void*, int> m_numbers;
};

} // namespace

QString described(const AttributedString& text)
{
    return Description().of(text);
}

} // namespace test
