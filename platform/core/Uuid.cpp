// SPDX-License-Identifier: MIT
#include "platform/core/Uuid.h"

#include <QUuid>

namespace platform {

QString newUuidString() { return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper(); }

} // namespace platform
