// SPDX-License-Identifier: MIT
#include "convert/UnshownAttachments.h"

#include "convert/ElementWalk.h"

#include <QSet>

using platform::XMLElement;

quint64 appendUnshownAttachments(XMLElement& body, const EvernoteXMLNote::Resources& resources)
{
    if (resources.empty())
        return 0;
    QSet<QString> named;
    forEachElement(body, [&named](XMLElement& element) {
        if (element.name() == QLatin1String("en-media"))
            named.insert(element.attribute(u"hash").value_or(QString()));
    });
    quint64 count = 0;
    for (const auto& resource : resources) {
        const std::optional<QString> hash = resource->md5Hash();
        if (!hash || named.contains(*hash))
            continue;
        XMLElement media = XMLElement::create(QStringLiteral("en-media"));
        if (!resource->mime().isEmpty())
            media.setAttribute(u"type", resource->mime());
        media.setAttribute(u"hash", *hash);
        XMLElement line = XMLElement::create(QStringLiteral("div"));
        line.addChild(media);
        body.addChild(line);
        ++count;
    }
    return count;
}
