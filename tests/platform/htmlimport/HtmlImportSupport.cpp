// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace test {

platform::HtmlImportOptions htmlOptions()
{
    platform::HtmlImportOptions options;
    options.standardFontFamily = QStringLiteral("Helvetica");
    options.defaultFontSize = 16;
    return options;
}

platform::AttributedString import(const QByteArray& html)
{
    return import(html, htmlOptions());
}

platform::AttributedString import(const QByteArray& html,
                                  const platform::HtmlImportOptions& options)
{
    platform::Error error;
    const auto text = platform::attributedStringFromHtml(html, options, &error);
    EXPECT_TRUE(text) << qPrintable(error.description());
    if (!text)
        return {};
    expectSound(*text);
    return *text;
}

QString shown(const platform::AttributedString& text)
{
    QString result = text.string();
    result.replace(QChar(0xFFFC), u'@')
        .replace(QChar(0x2028), u'|')
        .replace(QChar(0xA0), u'~')
        .replace(u'\t', u'>');
    return result;
}

QString shown(const QByteArray& body)
{
    const QString text = shown(import("<html><body>" + body + "</body></html>"));
    // The same page, damaged, goes through the repair; it must not come out otherwise.
    const QString repaired = shown(import("<html><body>" + body + "</body>"));
    EXPECT_EQ(text, repaired) << body.constData();
    return text;
}

const platform::TextAttributes& at(const platform::AttributedString& text, const char* what)
{
    const qsizetype position = text.string().indexOf(QString::fromUtf8(what));
    if (position < 0)
        throw std::runtime_error(std::string("not in the text: ") + what);
    return text.attributesAt(position);
}

const platform::ParagraphStyle& paragraphAt(const platform::AttributedString& text,
                                            const char* what)
{
    return *at(text, what).paragraphStyle;
}

void expectSound(const platform::AttributedString& text)
{
    const platform::ParagraphStyle* style = nullptr;
    qsizetype end = 0;
    for (const platform::AttributedString::Run& run : text.runs()) {
        ASSERT_EQ(run.range.location, end);
        end = run.range.end();
        ASSERT_TRUE(run.attributes->font);
        ASSERT_TRUE(run.attributes->paragraphStyle);
        const QStringView piece =
            QStringView(text.string()).sliced(run.range.location, run.range.length);
        ASSERT_EQ(run.attributes->attachment != nullptr, piece.contains(QChar(0xFFFC)));
        if (style) {
            ASSERT_EQ(*style, *run.attributes->paragraphStyle) << qPrintable(piece.toString());
        }
        // A run that holds several paragraphs gives them all one style, which is sound.
        style = piece.endsWith(u'\n') ? nullptr : run.attributes->paragraphStyle.get();
    }
    ASSERT_EQ(end, text.length());
    ASSERT_TRUE(text.isEmpty() || text.string().endsWith(u'\n'));
}

} // namespace test
