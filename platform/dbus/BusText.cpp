// SPDX-License-Identifier: MIT
#include "platform/dbus/BusText.h"

namespace platform {

bool isBusText(const QString& text)
{
    return text.isValidUtf16() && !text.contains(QChar::Null);
}

QString busText(const QString& text)
{
    if (isBusText(text))
        return text;
    QString clean = text;
    for (qsizetype index = 0; index < clean.size(); ++index) {
        const QChar character = clean[index];
        if (character.isHighSurrogate() && index + 1 < clean.size() &&
            clean[index + 1].isLowSurrogate())
            ++index;
        else if (character.isSurrogate() || character.isNull())
            clean[index] = QChar::ReplacementCharacter;
    }
    return clean;
}

} // namespace platform
