// SPDX-License-Identifier: MIT
#include "convert/EvernoteXMLItem.h"

#include "convert/ConversionErrors.h"
#include "convert/ElementWalk.h"
#include "convert/NoteLinks.h"
#include "convert/ScratchFolder.h"
#include "convert/UnshownAttachments.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/SystemLog.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/files/ResourceValues.h"
#include "platform/xml/XMLDocument.h"

using platform::Error;
using platform::XMLElement;
using platform::XMLNode;
using platform::manifest::Record;
namespace manifest = platform::manifest;

EvernoteXMLItem::EvernoteXMLItem(const QUrl& directoryURL, std::shared_ptr<FreeFileNames> freeNames)
    : EvernoteXMLNote(directoryURL)
    , m_freeNames(std::move(freeNames))
{
}

EvernoteXMLItem::~EvernoteXMLItem() = default;

bool EvernoteXMLItem::keepsUnshownAttachments()
{
    return platform::UserDefaults::standard().boolForKey(
        QStringLiteral("KeepUnreferencedAttachments"));
}

EvernoteXMLItem::Factory EvernoteXMLItem::factory()
{
    return [freeNames = std::make_shared<FreeFileNames>()](const QUrl& directoryURL) {
        return std::make_unique<EvernoteXMLItem>(directoryURL, freeNames);
    };
}

Record EvernoteXMLItem::itemDictInGroup(const Record& groupDict, Error* error)
{
    m_groupDict = groupDict;
    Record record = newRecord();
    std::optional<XMLElement> element = noteElement(error);
    if (!element)
        return nullptr;
    countBody(*element);
    if (isSingleAttachment(*element) && processSingleResource(record, error)) {
        counts().shownResources = counts().resources;
        return record;
    }
    if (keepsUnshownAttachments())
        m_unshownAttachments = appendUnshownAttachments(*element, resources());

    const QString scratchPath = directoryURL().toLocalFile() + QLatin1Char('/') + identifier();
    m_intermediateHTMLDirectoryURL = QUrl::fromLocalFile(scratchPath);
    ScratchFolder scratch(scratchPath);
    if (!scratch.create(error))
        return nullptr;
    const std::optional<QUrl> file = writeFile(*element, *record, error);
    scratch.remove(error);
    if (!file)
        return nullptr;

    counts().leftOutResources =
        counts().resources - counts().shownResources - counts().keptResources;
    setAttributesOnFile(*file);
    const QString path = file->toLocalFile();
    const QString filename = platform::lastPathComponent(path);
    record->insert(manifest::filenameKey, filename);
    record->insert(manifest::absoluteFilenameKey, path);
    record->insert(manifest::nameKey, platform::stringByDeletingPathExtension(filename));
    record->insert(manifest::extensionHiddenKey, true);
    return record;
}

Record EvernoteXMLItem::newRecord() const
{
    Record record = manifest::makeRecord();
    record->insert(manifest::entityNameKey, manifest::itemEntity);
    record->insert(manifest::nameKey, title());
    record->insert(manifest::identifierKey, identifier());
    if (created())
        record->insert(manifest::dateCreatedKey, *created());
    if (updated())
        record->insert(manifest::dateModifiedKey, *updated());
    if (!noteAttributes().sourceURL().isEmpty())
        record->insert(manifest::commentsKey, noteAttributes().sourceURL());
    if (!tags().isEmpty())
        record->insert(manifest::tagsStringKey, tags().join(QLatin1Char(',')));
    return record;
}

std::optional<XMLElement> EvernoteXMLItem::noteElement(Error* error)
{
    const std::optional<platform::XMLDocument> document =
        platform::XMLDocument::fromData(contentData(), platform::XMLDocument::Tidy::Yes, error);
    if (!document)
        return std::nullopt;
    if (document->wasRepaired())
        addWarning(
            platform::localizedString("The note's markup was malformed and has been repaired."));
    const QString name = QStringLiteral("en-note");
    if (const std::optional<XMLElement> found = document->rootElementNamed(name))
        return found;
    XMLElement element = XMLElement::create(name);
    XMLElement root = document->rootElement();
    root.detach();
    element.addChild(root);
    return element;
}

void EvernoteXMLItem::countBody(const XMLElement& body)
{
    // Most notes have neither, and need no walk.
    if (contentData().contains("evernote:")) {
        const NoteLinks links = resolveNoteLinks(body, linkTargets().get());
        counts().links = links.count;
        counts().resolvedLinks = static_cast<quint64>(links.resolved.size());
        setLinkedNotes(links.resolved);
    }
    if (contentData().contains("en-crypt")) {
        forEachElement(body, [this](const XMLElement& element) {
            counts().encryptedPassages += element.name() == QLatin1String("en-crypt") ? 1 : 0;
        });
    }
}

bool EvernoteXMLItem::isSingleAttachment(const XMLElement& element) const
{
    if (element.childCount() != 1 || resources().size() != 1)
        return false;
    const XMLNode child = *element.firstChild();
    if (child.name() == QLatin1String("en-media"))
        return true;
    if (child.name() != QLatin1String("div"))
        return false;
    // Eight bits: 257 images in a row count as one, too.
    std::uint8_t count = 0;
    for (std::optional<XMLNode> part = child.firstChild(); part; part = part->nextSibling()) {
        const QString name = part->name();
        if (name == QLatin1String("en-media"))
            ++count;
        else if (name != QLatin1String("br"))
            return false;
    }
    return count == 1;
}

bool EvernoteXMLItem::isWebClip() const
{
    return noteAttributes().source() == QLatin1String("web.clip") &&
           !noteAttributes().sourceURL().isEmpty();
}

std::optional<QUrl> EvernoteXMLItem::writeFile(const XMLElement& element, QVariantMap& record,
                                               Error* error)
{
    if (isWebClip())
        return writeWebClip(element, record, error);
    record.insert(manifest::itemTypeKey, EvernoteXMLItemTypeNote);
    return createNoteForElement(element, error);
}

std::optional<QUrl> EvernoteXMLItem::writeWebClip(const XMLElement& element, QVariantMap& record,
                                                  Error* error)
{
    record.insert(manifest::itemTypeKey, EvernoteXMLItemTypeWebPage);
    const bool refreshing =
        platform::UserDefaults::standard().boolForKey(QStringLiteral("ReloadFromWeb"));
    Error failure;
    std::optional<QUrl> file = createWebArchiveForElement(element, refreshing, &failure);
    if (!file && refreshing) {
        platform::systemLog(
            QStringLiteral(
                "Refreshing web clipping from web failed, retrying with original data. Failure: %1")
                .arg(failure.isNull() ? QStringLiteral("(null)") : failure.description()));
        failure = Error();
        file = createWebArchiveForElement(element, false, &failure);
    }
    if (file)
        return file;
    if (failure.code() == EvernoteXMLItemErrorNoWebArchive) {
        platform::systemLog(QStringLiteral("Web archive conversion failed, reverting to note."));
        record.insert(manifest::itemTypeKey, EvernoteXMLItemTypeNote);
        return createNoteForElement(element, error);
    }
    // The caller is told nothing, but who reads the report is.
    if (!failure.isNull())
        withholdError(failure);
    return std::nullopt;
}

void EvernoteXMLItem::setAttributesOnFile(const QUrl& file)
{
    platform::ResourceValues values;
    values.hasHiddenExtension = true;
    values.creationDate = created();
    values.contentModificationDate = updated();
    if (!tags().isEmpty())
        values.tagNames = tags();
    if (!platform::setResourceValues(file.toLocalFile(), values)) {
        platform::systemLog(QStringLiteral("Couldn't set resource values on %1")
                                .arg(QString::fromLatin1(file.toEncoded())));
        addWarning(platform::localizedString(
            "The file system does not keep the note's dates or tags on its file."));
    }
}

std::optional<QString> EvernoteXMLItem::libraryFolderForType(int type)
{
    switch (type) {
    case EvernoteXMLItemTypeNote:
        return QStringLiteral("Notes");
    case EvernoteXMLItemTypeDocument:
        return QStringLiteral("Documents");
    case EvernoteXMLItemTypeImage:
        return QStringLiteral("Images");
    case EvernoteXMLItemTypeSound:
        return QStringLiteral("Sounds");
    case EvernoteXMLItemTypeMovie:
        return QStringLiteral("Movies");
    case EvernoteXMLItemTypeBookmark:
        return QStringLiteral("Bookmarks");
    case EvernoteXMLItemTypeWebPage:
        return QStringLiteral("Web Pages");
    default:
        return std::nullopt;
    }
}

QString EvernoteXMLItem::targetFolderForType(int type) const
{
    const QString folder = directoryURL().toLocalFile();
    const bool straight = m_groupDict && m_groupDict->value(manifest::groupTypeKey).toInt() ==
                                             manifest::importedFolderGroupType;
    if (straight)
        return folder;
    return folder + QLatin1Char('/') + libraryFolderForType(type).value_or(QString());
}
