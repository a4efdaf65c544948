// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

// Addresses as text, resolved and written as a browser does (WHATWG URL). A web archive is looked up by
// this text, and QUrl writes some characters otherwise: it makes %7C of the | in a font service's query.
namespace platform {

// The absolute address that a reference in a document or style sheet means; empty when it means none.
// White space around it and line breaks within are dropped, and so are user name, password and fragment:
// neither of them may ever reach a server. An address longer than 16,384 characters means none, unless
// it carries its data. base may be empty for a reference that is absolute itself.
[[nodiscard]] QString absoluteAddress(QStringView reference, const QString& base);

[[nodiscard]] QString addressOfUrl(const QUrl& url);

// For requests; equal to the address but for the escaping of some characters.
[[nodiscard]] QUrl urlOfAddress(const QString& address);

[[nodiscard]] bool isWebAddress(QStringView address);
[[nodiscard]] bool isFileAddress(QStringView address);
[[nodiscard]] bool isDataAddress(QStringView address);

// Scheme, host and port: "https://host:8443". Empty for anything but the web.
[[nodiscard]] QString originOfAddress(const QString& address);

} // namespace platform
