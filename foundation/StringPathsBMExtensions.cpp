// SPDX-License-Identifier: MIT
#include "foundation/StringPathsBMExtensions.h"

#include "platform/core/PathUtilities.h"
#include "platform/core/TextMatching.h"
#include "platform/files/ResourceValues.h"

QString fileSystemRepresentationString(const QString& text)
{
    const qsizetype end = text.indexOf(QChar(0));
    return platform::decomposedString(end < 0 ? text : text.first(end));
}

QString fileDisplayName(const QString& path)
{
    const QString name = platform::lastPathComponent(path);
    const auto values = platform::resourceValues(path);
    const bool hidesExtension = values && values->hasHiddenExtension.value_or(false);
    return hidesExtension ? platform::stringByDeletingPathExtension(name) : name;
}
