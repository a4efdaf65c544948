// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLItemType.h"

#include "platform/types/UniformTypes.h"

EvernoteXMLItemType itemTypeForUniformType(const QString& type)
{
    const auto conforms = [&type](const QString& general) {
        return platform::typeConformsTo(type, general);
    };
    if (conforms(platform::utTypeImage))
        return EvernoteXMLItemTypeImage;
    // Before audio: what is both has pictures to show.
    if (conforms(platform::utTypeMovie))
        return EvernoteXMLItemTypeMovie;
    if (conforms(platform::utTypeAudio))
        return EvernoteXMLItemTypeSound;
    if (conforms(platform::utTypeWebArchive) || conforms(platform::utTypeHtml))
        return EvernoteXMLItemTypeWebPage;
    if (conforms(platform::utTypeWebInternetLocation))
        return EvernoteXMLItemTypeBookmark;
    return EvernoteXMLItemTypeDocument;
}
