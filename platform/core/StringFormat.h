// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace platform {

// The format with its places filled. A place is %@, %ld or %lu, which take the arguments in order, or %1$@,
// %1$ld or %1$lu, which name theirs, counted from 1, so that a translation may swap them; %% is a percent sign.
// Anything else, and a place without an argument, stays as it stands. What an argument holds is never read
// as a format.
[[nodiscard]] QString stringWithFormat(const QString& format, const QStringList& arguments);

} // namespace platform
