// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace platform {

// A URL that stays the text that it was made from, as the platform's own do. QUrl writes hosts in
// small letters, completes "1.2" to an IPv4 address, takes back escapes and refuses hosts that no
// name server takes; but in links between programs ("message://%3Cid%3E", "notes://showNote") such
// a host is what the link means.
class Url {
public:
    // None: an empty text.
    Url() = default;
    // Its text in ASCII; none for an invalid one. Implicit, since it is the same address.
    Url(const QUrl& url);

    // The URL that the text is: only characters that may stand in a URL, "%" only before two
    // hexadecimal digits, at most one "#", a scheme of letters, digits, "+", "-" and "." before the
    // first colon, a port of digits, an authority with brackets only round an IPv6 address. A
    // scheme is not asked for. None for anything else, the empty text included.
    [[nodiscard]] static std::optional<Url> fromString(const QString& text);
    // The same, or else the URL that the text's UTF-8 bytes make (see urlTextFromString) when that
    // has a scheme: what other programs offer as an address may hold characters beyond the rules.
    [[nodiscard]] static std::optional<Url> fromLooseString(const QString& text);

    [[nodiscard]] bool isEmpty() const { return m_text.isEmpty(); }
    // Plain ASCII, as it was written.
    [[nodiscard]] const QString& absoluteString() const { return m_text; }
    // As it was written, without the colon; empty without one.
    [[nodiscard]] QString scheme() const;
    // Without escapes, user and port, and without the brackets of an IPv6 address.
    [[nodiscard]] QString host() const;
    // Without escapes; what follows the scheme where there is no authority ("me@a.example").
    [[nodiscard]] QString path() const;

    // Invalid where QUrl takes no such URL.
    [[nodiscard]] QUrl toQUrl() const { return QUrl(m_text, QUrl::StrictMode); }

    friend bool operator==(const Url&, const Url&) = default;

private:
    QString m_text;
};

} // namespace platform
