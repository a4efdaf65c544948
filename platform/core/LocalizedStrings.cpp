// SPDX-License-Identifier: MIT
#include "platform/core/LocalizedStrings.h"

#include <QCoreApplication>

namespace platform {

namespace {
// One context for all texts: a text means the same wherever it is shown.
constexpr const char* translationContext = "Vupuge";
} // namespace

QString localizedString(const char* englishText)
{
    return QCoreApplication::translate(translationContext, englishText);
}

QString localizedString(const QString& englishText)
{
    return localizedString(englishText.toUtf8().constData());
}

} // namespace platform
