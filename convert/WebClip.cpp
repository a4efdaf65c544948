// SPDX-License-Identifier: MIT
#include "convert/WebClip.h"

#include "convert/AttachmentMarker.h"
#include "convert/ConversionErrors.h"
#include "convert/ENMLRewriting.h"
#include "convert/PageTemplate.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/UrlString.h"
#include "platform/files/FileManager.h"
#include "platform/webview/LoadErrors.h"
#include "platform/webview/UrlText.h"
#include "webcapture/EvernoteWebConversionOperation.h"

#include <QCoreApplication>
#include <QThread>

using platform::Error;
using platform::XMLElement;

namespace {

// Many clips name their page with characters that a URL may not hold; a browser escapes them.
QUrl urlFromText(const QString& text)
{
    return platform::urlWithString(text).value_or(QUrl(text.trimmed(), QUrl::TolerantMode));
}

} // namespace

WebClip::WebClip(const EvernoteXMLNote& note, const QUrl& folder)
    : m_note(note)
    , m_folder(folder)
    , m_sourceURL(urlFromText(note.noteAttributes().sourceURL()))
{
}

std::optional<QByteArray> WebClip::archiveFromWeb(Error* error)
{
    // A note must not have this machine's own files put into the archive.
    if (!platform::isWebAddress(platform::addressOfUrl(m_sourceURL))) {
        platform::setError(error, platform::urlError(platform::UrlErrorUnsupportedUrl));
        return std::nullopt;
    }
    std::optional<QByteArray> archive = archiveOfPage(m_sourceURL, error);
    if (archive && m_note.counts().taskLines > 0) {
        m_warnings += platform::localizedString(
                          "The page was loaded again; the note's tasks were left out: %1.")
                          .arg(m_note.counts().taskLines);
    }
    for (const auto& resource : m_note.resources()) {
        if (archive && resource->itemType() != EvernoteXMLItemTypeImage) {
            const QString& name = resource->attributes().filename();
            m_warnings += platform::localizedString(
                              "The page was loaded again; its attachment “%1” was left out.")
                              .arg(name.isEmpty() ? resource->mime() : name);
        }
    }
    return archive;
}

std::optional<QByteArray> WebClip::archiveFromNoteElement(const XMLElement& noteElement,
                                                          Error* error)
{
    const std::optional<QUrl> page = rebuiltPage(noteElement, error);
    return page ? archiveOfPage(*page, error) : std::nullopt;
}

std::optional<QUrl> WebClip::rebuiltPage(const XMLElement& noteElement, Error* error)
{
    ENMLRewriting rewriting(m_note, m_folder, ENMLRewriting::ImageSource::RelativeAddress);
    const std::optional<QString> body = rewriting.xhtmlString(noteElement, error);
    if (!body)
        return std::nullopt;
    const std::optional<QString> page = pageFromTemplate(m_note.title(), *body, error);
    if (!page)
        return std::nullopt;
    if (page->contains(attachmentmarker::head)) {
        platform::setError(error,
                           Error(evernoteXMLItemErrorDomain, EvernoteXMLItemErrorNoWebArchive));
        return std::nullopt;
    }
    m_warnings = rewriting.warnings();
    m_shownHashes = rewriting.shownHashes();
    m_missingAttachments = rewriting.missingAttachments();
    const QString path =
        m_folder.toLocalFile() + QLatin1Char('/') + m_note.identifier() + QStringLiteral(".html");
    if (!platform::writeFile(path, page->toUtf8(), platform::WriteOption::Plain, error))
        return std::nullopt;
    return QUrl::fromLocalFile(path);
}

std::optional<QByteArray> WebClip::archiveOfPage(const QUrl& page, Error* error) const
{
    Q_ASSERT(QThread::currentThread() != QCoreApplication::instance()->thread());
    const auto operation = std::make_shared<EvernoteWebConversionOperation>();
    operation->setOriginalWebURL(m_sourceURL);
    operation->setOriginalURL(page);
    m_note.awaitedOperations()->addOperation(operation);
    operation->start();
    operation->waitUntilFinished();
    if (!operation->webArchiveData() && operation->operationError())
        platform::setError(error, *operation->operationError());
    return operation->webArchiveData();
}
