// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

// The moment of a time stamp YYYYMMDDThhmmssZ, read as UTC, which is what Evernote writes. None for
// a text in any other form, white space round it included, and for a day or time that does not
// exist.
[[nodiscard]] std::optional<QDateTime> utcDateFromTimeStamp(QStringView text);
