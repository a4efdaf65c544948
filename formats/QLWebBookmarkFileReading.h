// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>

// What a bookmark file holds, as text.
struct QLWebBookmarkContents {
    QString name;
    QString address;
};

// From a property list in any form; empty fields for values that are not there or no texts.
[[nodiscard]] QLWebBookmarkContents webBookmarkContents(QByteArrayView propertyList);

// What stands behind the first "URL=" of a shortcut's text, up to white space or a line end. None
// without "URL=".
[[nodiscard]] std::optional<QString> addressInShortcut(QStringView text);

// The same from the file's bytes, which are UTF-8, or else Windows Latin 1.
[[nodiscard]] std::optional<QString> addressInShortcut(const QByteArray& file);
