// SPDX-License-Identifier: MIT
#include "convert/NoteLinks.h"

#include "convert/ElementWalk.h"

using platform::XMLElement;

namespace {

bool leadsToNote(const std::optional<QString>& address)
{
    return address &&
           address->trimmed().startsWith(QLatin1String("evernote:///view/"), Qt::CaseInsensitive);
}

} // namespace

NoteLinks resolveNoteLinks(const XMLElement& body, const NoteLinkTargets* targets)
{
    NoteLinks links;
    forEachElement(body, [&](XMLElement& element) {
        if (element.name() != QLatin1String("a") || !leadsToNote(element.attribute(u"href")))
            return;
        ++links.count;
        const std::optional<QString> identifier =
            targets ? targets->identifierForTitle(element.stringValue()) : std::nullopt;
        if (!identifier)
            return;
        element.setAttribute(u"href", itemLinkPrefix + *identifier);
        links.resolved += *identifier;
    });
    return links;
}
