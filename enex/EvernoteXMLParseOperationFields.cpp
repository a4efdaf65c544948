// SPDX-License-Identifier: MIT
//
// The start tags and texts of EvernoteXMLParseOperation: which field of the note a text goes to.
#include "enex/EvernoteXMLErrors.h"
#include "enex/EvernoteXMLParseOperation.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/NumericText.h"

using platform::XMLAttributes;

void EvernoteXMLParseOperation::parserDidStartElement(platform::XMLParser&, const QString& name,
                                                      const XMLAttributes& attributes)
{
    if (stopIfCancelled())
        return;
    if (m_debugMode)
        debugLog(QStringLiteral("parser:didStartElement: ") + name);
    if (m_currentElement == EvernoteXMLElementNone) {
        if (name == QLatin1String("note")) {
            m_currentElement = EvernoteXMLElementNote;
            m_currentItem = m_itemFactory(m_directoryURL);
        }
    } else if (m_currentNoteElement == EvernoteXMLNoteElementResource) {
        startElementInResource(name, attributes);
    } else if (m_currentNoteElement == EvernoteXMLNoteElementNoteAttributes) {
        startElementInNoteAttributes(name);
    } else {
        startElementInNote(name);
    }
}

void EvernoteXMLParseOperation::startElementInNote(const QString& name)
{
    if (name == QLatin1String("title")) {
        m_currentNoteElement = EvernoteXMLNoteElementTitle;
    } else if (name == QLatin1String("content")) {
        m_currentNoteElement = EvernoteXMLNoteElementContent;
    } else if (name == QLatin1String("resource")) {
        m_currentNoteElement = EvernoteXMLNoteElementResource;
        m_currentResource = std::make_shared<EvernoteXMLResource>();
        m_currentResourceElement = EvernoteXMLResourceElementNone;
        m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementNone;
    } else if (name == QLatin1String("created")) {
        m_currentNoteElement = EvernoteXMLNoteElementCreated;
    } else if (name == QLatin1String("updated")) {
        m_currentNoteElement = EvernoteXMLNoteElementUpdated;
    } else if (name == QLatin1String("tag")) {
        m_currentNoteElement = EvernoteXMLNoteElementTag;
    } else if (name == QLatin1String("note-attributes")) {
        m_currentNoteElement = EvernoteXMLNoteElementNoteAttributes;
        m_currentNoteAttributesElement = EvernoteXMLNoteAttributesElementNone;
    } else {
        m_currentNoteElement = EvernoteXMLNoteElementNone;
    }
}

void EvernoteXMLParseOperation::startElementInResource(const QString& name, const XMLAttributes& attributes)
{
    if (name == QLatin1String("data")) {
        const std::optional<QString> encoding = attributes.value("encoding");
        if (encoding != QLatin1String("base64")) {
            const QString text = platform::localizedString("Cannot parse \"%@\" data.")
                                     .replace(QLatin1String("%@"), encoding.value_or(QStringLiteral("(null)")));
            finishWithError(
                {evernoteXMLParseOperationErrorDomain, EvernoteXMLParseOperationErrorUnknownEncoding, text});
            return;
        }
        m_currentResourceElement = EvernoteXMLResourceElementData;
    } else if (name == QLatin1String("mime")) {
        m_currentResourceElement = EvernoteXMLResourceElementMime;
    } else if (name == QLatin1String("width")) {
        m_currentResourceElement = EvernoteXMLResourceElementWidth;
    } else if (name == QLatin1String("height")) {
        m_currentResourceElement = EvernoteXMLResourceElementHeight;
    } else if (name == QLatin1String("resource-attributes")) {
        m_currentResourceElement = EvernoteXMLResourceElementResourceAttributes;
        m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementNone;
    }
    if (m_currentResourceElement != EvernoteXMLResourceElementResourceAttributes)
        return;
    if (name == QLatin1String("file-name"))
        m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementFileName;
    else if (name == QLatin1String("timestamp"))
        m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementTimestamp;
    else
        m_currentResourceAttributesElement = EvernoteXMLResourceAttributesElementNone;
}

void EvernoteXMLParseOperation::startElementInNoteAttributes(const QString& name)
{
    if (name == QLatin1String("source"))
        m_currentNoteAttributesElement = EvernoteXMLNoteAttributesElementSource;
    else if (name == QLatin1String("source-url"))
        m_currentNoteAttributesElement = EvernoteXMLNoteAttributesElementSourceURL;
    else
        m_currentNoteAttributesElement = EvernoteXMLNoteAttributesElementNone;
}

void EvernoteXMLParseOperation::parserFoundCharacters(platform::XMLParser&, QUtf8StringView text)
{
    if (stopIfCancelled())
        return;
    debugLog(QStringLiteral("parser:foundCharacters:"));
    switch (m_currentNoteElement) {
    case EvernoteXMLNoteElementTitle:
        m_currentItem->appendTitle(text);
        break;
    case EvernoteXMLNoteElementCreated:
        m_currentItem->setCreated(dateFrom(text));
        break;
    case EvernoteXMLNoteElementUpdated:
        m_currentItem->setUpdated(dateFrom(text));
        break;
    case EvernoteXMLNoteElementTag:
        m_currentItem->addTag(platform::trimmedOfWhitespaceAndNewlines(text.toString()).toString());
        break;
    case EvernoteXMLNoteElementResource:
        charactersInResource(text);
        break;
    case EvernoteXMLNoteElementNoteAttributes:
        charactersInNoteAttributes(text);
        break;
    case EvernoteXMLNoteElementContent: // only its CDATA counts
    case EvernoteXMLNoteElementNone:
        break;
    }
}

void EvernoteXMLParseOperation::charactersInResource(QUtf8StringView text)
{
    switch (m_currentResourceElement) {
    case EvernoteXMLResourceElementData:
        m_currentResource->appendBase64Data(text);
        break;
    case EvernoteXMLResourceElementMime:
        m_currentResource->appendMime(text);
        break;
    case EvernoteXMLResourceElementWidth:
        m_currentResource->setWidth(platform::doubleValue(text.toString()));
        break;
    case EvernoteXMLResourceElementHeight:
        m_currentResource->setHeight(platform::doubleValue(text.toString()));
        break;
    case EvernoteXMLResourceElementResourceAttributes:
        if (m_currentResourceAttributesElement == EvernoteXMLResourceAttributesElementTimestamp)
            m_currentResource->attributes().setTimestamp(dateFrom(text));
        else if (m_currentResourceAttributesElement == EvernoteXMLResourceAttributesElementFileName)
            m_currentResource->attributes().appendFilename(text);
        break;
    case EvernoteXMLResourceElementNone:
        break;
    }
}

void EvernoteXMLParseOperation::charactersInNoteAttributes(QUtf8StringView text)
{
    if (m_currentNoteAttributesElement == EvernoteXMLNoteAttributesElementSource)
        m_currentItem->noteAttributes().appendSource(text);
    else if (m_currentNoteAttributesElement == EvernoteXMLNoteAttributesElementSourceURL)
        m_currentItem->noteAttributes().appendSourceURL(text);
}

void EvernoteXMLParseOperation::parserFoundCData(platform::XMLParser&, QByteArrayView utf8)
{
    if (stopIfCancelled())
        return;
    debugLog(QStringLiteral("parser:foundCDATA:"));
    if (m_currentNoteElement == EvernoteXMLNoteElementContent)
        m_currentItem->appendContentData(utf8);
}
