// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

namespace platform {

// The identifier of the type with that OSType, the four-character code of the classic system's
// files, which are told apart by case and blanks: "TEXT", "PDF ". Empty for one that no declared
// type has.
[[nodiscard]] QString preferredIdentifierForTypeCode(QStringView code);

} // namespace platform
