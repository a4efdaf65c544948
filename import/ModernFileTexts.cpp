// SPDX-License-Identifier: MIT
#include "import/ModernFileTexts.h"

#include "platform/core/LocalizedStrings.h"

using platform::localizedString;

QStringList modernFileLogLines(const ModernFileSigns& signs, ModernFileRead read)
{
    if (!signs.isModern())
        return {};
    if (read == ModernFileRead::Whole)
        return {QStringLiteral("The file is of today's Evernote and is read whole (ModernENEX).")};
    QStringList lines{
        QStringLiteral("The file is of today's Evernote and is read as it stands (ModernENEX is off).")};
    if (signs.hasHarmfulWhiteSpace)
        lines += QStringLiteral("Lost by that: dates before white space; tags gain empty entries.");
    if (signs.tasks > 0)
        lines += QStringLiteral("Lost by that: %1 tasks, whose titles and dates run into their notes'.")
                     .arg(signs.tasks);
    if (signs.losesWhenReadAsWritten())
        lines += QStringLiteral("To keep them, import the file again with ModernENEX on.");
    return lines;
}

QStringList modernFileRemarks(const ModernFileSigns& signs, ModernFileRead read)
{
    if (read == ModernFileRead::Whole || !signs.losesWhenReadAsWritten())
        return {};
    QStringList remarks;
    if (signs.hasHarmfulWhiteSpace)
        remarks += localizedString("The file is indented, as today's Evernote writes it. Read as it "
                                   "stands, it loses dates, and tags gain empty entries.");
    if (signs.tasks > 0)
        remarks += localizedString("Tasks that were lost because the file was read as it stands: %1.")
                       .arg(signs.tasks);
    remarks += localizedString("To keep all of it, import the file again with the option “Read files "
                               "of today's Evernote whole” (setting ModernENEX).");
    return remarks;
}
