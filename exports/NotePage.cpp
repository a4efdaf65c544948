// SPDX-License-Identifier: MIT
#include "exports/NotePage.h"

#include "convert/PageTemplate.h"
#include "convert/UnshownAttachments.h"
#include "exports/PageRewriting.h"
#include "foundation/FileNameFitting.h"
#include "foundation/FreeFileNames.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"

using platform::Error;
using platform::XMLElement;
using platform::manifest::Record;

namespace {

const QString resourcesExtension = QStringLiteral(".resources");
// Bytes for " 1234567", which tells a page from others of its name.
constexpr int roomForNumber = 8;

} // namespace

NotePage::NotePage(const QUrl& directoryURL)
    : EvernoteXMLItem(directoryURL)
{
}

NotePage::Names NotePage::freeNames() const
{
    QString base = fileNameFromTitle(title());
    if (base.isEmpty())
        base = platform::localizedString("Untitled");
    // The folder's name is longer than the page's.
    const qsizetype room =
        platform::maximumFileNameBytes - roomForNumber - resourcesExtension.size();
    if (!resources().empty())
        base = fileNameFittingBytes(base, room);
    const QString page =
        freeFileNameInDirectoryAtURL(base + QStringLiteral(".html"), directoryURL());
    return {page, platform::stringByDeletingPathExtension(page) + resourcesExtension};
}

QString NotePage::resourcesFolder(const Names& names) const
{
    return directoryURL().toLocalFile() + QLatin1Char('/') + names.resources;
}

Record NotePage::itemDictInGroup(const Record&, Error* error)
{
    std::optional<XMLElement> element = noteElement(error);
    if (!element)
        return nullptr;
    const Names names = freeNames();
    if (!resources().empty() &&
        !platform::createDirectory(resourcesFolder(names), platform::IntermediateFolders::Require,
                                   error))
        return nullptr;
    std::optional<QString> content;
    if (isSingleAttachment(*element))
        content = bodyOfSingleAttachment(names);
    if (!content)
        content = body(*element, names, error);
    if (!content)
        return nullptr;
    const std::optional<QString> page = pageFromTemplate(title().toHtmlEscaped(), *content, error);
    const QString path = directoryURL().toLocalFile() + QLatin1Char('/') + names.page;
    if (!page || !platform::writeFile(path, page->toUtf8(), platform::WriteOption::Plain, error))
        return nullptr;
    return platform::manifest::makeRecord();
}

std::optional<QString> NotePage::bodyOfSingleAttachment(const Names& names)
{
    EvernoteXMLResource& resource = *resources().front();
    PageRewriting rewriting(*this, QUrl::fromLocalFile(resourcesFolder(names)), {});
    return rewriting.markupForAttachment(resource, singleResourceName());
}

std::optional<QString> NotePage::body(XMLElement& element, const Names& names, Error* error)
{
    if (keepsUnshownAttachments())
        appendUnshownAttachments(element, resources());
    PageRewriting rewriting(*this, QUrl::fromLocalFile(resourcesFolder(names)),
                            element.stringValue());
    const std::optional<QString> markup = rewriting.noteBodyString(element, error);
    if (!markup || !rewriting.writeUnshownAttachments(error))
        return std::nullopt;
    for (const QString& warning : rewriting.bodyWarnings())
        addWarning(warning);
    return markup;
}
