// SPDX-License-Identifier: MIT
#include "platform/core/UrlString.h"

#include <QStringView>

namespace platform {

namespace {

bool isHexDigit(QChar unit)
{
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

bool isUrlCharacter(QChar unit)
{
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z')
           || QStringView(u"!$&'()*+,-./:;=?@_~#[]").contains(unit);
}

bool holdsUrlCharactersOnly(QStringView text)
{
    for (qsizetype index = 0; index < text.size(); ++index) {
        const bool isEscape = text[index] == u'%' && index + 2 < text.size() && isHexDigit(text[index + 1])
                              && isHexDigit(text[index + 2]);
        if (!isEscape && !isUrlCharacter(text[index]))
            return false;
    }
    return text.count(u'#') <= 1;
}

} // namespace

std::optional<QUrl> urlWithString(const QString& text)
{
    if (text.isEmpty() || !holdsUrlCharactersOnly(text))
        return std::nullopt;
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

QString absoluteStringOfUrl(const QUrl& url) { return QString::fromLatin1(url.toEncoded(QUrl::FullyEncoded)); }

} // namespace platform
