// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImport.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/htmlimport/HtmlDocument.h"
#include "platform/htmlimport/HtmlWalker.h"

#include <QFile>

namespace platform {

namespace {

html::FontContext fontsFor(const HtmlImportOptions& options)
{
    const double size = options.defaultFontSize > 0 ? options.defaultFontSize : 12;
    const Font font =
        Font::fontNamed(options.standardFontFamily, size).value_or(Font::userFont(size));
    return {font.family, font.monospaced, font.size};
}

Error errorWith(HtmlImportErrorCode code, const QString& description)
{
    return Error(htmlImportErrorDomain, static_cast<qint64>(code), description);
}

} // namespace

std::optional<AttributedString>
attributedStringFromHtml(QByteArrayView utf8, const HtmlImportOptions& options, Error* error)
{
    if (utf8.isEmpty())
        return AttributedString();
    const html::DocumentPointer document = html::parsePage(utf8);
    if (!document) {
        setError(error, errorWith(HtmlImportErrorCode::NotText,
                                  localizedString("The page could not be read.")));
        return std::nullopt;
    }
    const html::FontContext fonts = fontsFor(options);
    return html::HtmlWalker(options, fonts).walk(xmlDocGetRootElement(document.get()));
}

std::optional<AttributedString>
attributedStringFromHtmlFile(const QString& path, const HtmlImportOptions& options, Error* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        const QString text =
            localizedString("The page \u201c%1\u201d could not be opened.").arg(path);
        setError(error, errorWith(HtmlImportErrorCode::Unreadable, text)
                            .withUnderlyingError(
                                Error(QStringLiteral("Qt"), file.error(), file.errorString())));
        return std::nullopt;
    }
    return attributedStringFromHtml(file.readAll(), options, error);
}

} // namespace platform
