// SPDX-License-Identifier: MIT
#pragma once

#include <QMimeData>
#include <QString>

#include <optional>

namespace platform {

// An address as programs here offer it on the clipboard and in drags.
struct OfferedLink {
    QString address;
    QString title; // empty where the format has none
};

// On X11 Qt itself gives the first of these as the last, which has no titles.
//
// From, in this order: text/x-moz-url (address and title on two lines, UTF-16 of either byte order,
// or UTF-8), _NETSCAPE_URL (the same in UTF-8), text/uri-list (its first line that is no comment).
[[nodiscard]] std::optional<OfferedLink> offeredLink(const QMimeData& data);

// Whether there is any of these formats, without reading it.
[[nodiscard]] bool offersLink(const QMimeData& data);

} // namespace platform
