// SPDX-License-Identifier: MIT
// Any UTF-16, unpaired surrogates included, as a file name.
#include "foundation/StringBMExtensions.h"
#include "foundation/StringQLExtensions.h"
#include "platform/core/CharacterSet.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace {

// An extension of 254 leaves no room for the name before it, so that the dot comes first after all.
bool isExtensionAlone(const QString& name) { return name.size() == 255 && name.startsWith(u'.'); }

bool isSafe(const QString& name)
{
    const bool hasLineEnd = std::any_of(name.begin(), name.end(), [](QChar unit) {
        return platform::isNewlineCharacter(unit.unicode());
    });
    return name.size() <= 255 && !hasLineEnd && (!name.startsWith(u'.') || isExtensionAlone(name))
           && !name.contains(u'/') && !name.contains(u':') && !name.contains(u'~');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QString text(qsizetype(size / 2), Qt::Uninitialized);
    if (!text.isEmpty())
        std::memcpy(text.data(), data, size / 2 * 2);
    try {
        const QString name = stringSanitizedForFileName(text);
        // Only the blanks that a cut leaves at the end keep a second pass from finding nothing to do.
        const bool isStable =
            isExtensionAlone(name)
            || stringSanitizedForFileName(name) == platform::trimmedOfWhitespaceAndNewlines(name);
        if (!isSafe(name) || !isStable)
            std::abort();
    } catch (const std::out_of_range&) {
        // The one name that cannot be shortened: over 255 with an extension over 254.
    }
    static_cast<void>(generateFilename(text));
    return 0;
}
