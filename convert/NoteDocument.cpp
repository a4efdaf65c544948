// SPDX-License-Identifier: MIT
#include "convert/NoteDocument.h"

#include "convert/AttachmentMarker.h"
#include "formats/AttributedStringQLNoteExtensions.h"
#include "formats/QLNoteFile.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/files/FileManager.h"
#include "platform/files/FileWrapper.h"
#include "platform/htmlimport/HtmlImport.h"

#include <cmath>
#include <stdexcept>

using platform::AttributedString;
using platform::Error;
using platform::FileWrapper;
using platform::Font;

namespace {

// Points.
constexpr double standardFontSize = 12;

FileWrapper::Pointer loadAttachment(const QString& folder, const QString& name, Error* error)
{
    const std::optional<QString> path = platform::pathWithin(folder, name, error);
    if (!path)
        return nullptr;
    FileWrapper::Pointer wrapper = QFileInfo(*path).isDir() ? FileWrapper::read(*path, error)
                                                            : FileWrapper::fileOnDisk(*path, error);
    if (wrapper)
        wrapper->setPreferredFilename(name);
    return wrapper;
}

} // namespace

Font NoteDocument::bodyFont()
{
    platform::UserDefaults& defaults = platform::UserDefaults::standard();
    defaults.addSuiteNamed(QStringLiteral("com.brightmoor.Quillery3"));
    defaults.addSuiteNamed(QStringLiteral("com.brightmoor.Quillery3.mac"));
    const QString name =
        defaults.stringForKey(QStringLiteral("DefaultNoteFontName")).value_or(QString());
    const float size = defaults.floatForKey(QStringLiteral("DefaultNoteFontSize"));
    return Font::fontNamed(name, static_cast<double>(size))
        .value_or(Font::userFont(standardFontSize));
}

AttributedString NoteDocument::textOfPage(const QString& pagePath, Error* error)
{
    const Font font = bodyFont();
    platform::HtmlImportOptions options;
    options.standardFontFamily = font.family;
    options.defaultFontSize = std::trunc(font.size);
    options.baseDirectory = QFileInfo(pagePath).path();
    options.preservedSpanDelimiters =
        platform::PreservedSpanDelimiters{attachmentmarker::head, attachmentmarker::tail};
    return platform::attributedStringFromHtmlFile(pagePath, options, error)
        .value_or(AttributedString());
}

QSet<QString> NoteDocument::attachedFileNames(const AttributedString& text)
{
    QSet<QString> names;
    for (const AttributedString::Run& run : text.runs()) {
        const auto& attachment = run.attributes->attachment;
        if (attachment && attachment->fileWrapper())
            names.insert(attachment->fileWrapper()->preferredFilename());
    }
    return names;
}

void NoteDocument::appendAttachmentMarker(AttributedString& text, const QString& fileName)
{
    const bool isAtLineStart = text.length() == 0 || text.string().endsWith(QLatin1Char('\n'));
    text.append(AttributedString((isAtLineStart ? QString() : QStringLiteral("\n")) +
                                 attachmentmarker::head + fileName + attachmentmarker::tail));
}

bool NoteDocument::replaceAttachmentMarkers(AttributedString& text, const QString& folder,
                                            Error* error)
{
    using namespace attachmentmarker;
    const QString& string = text.string();
    std::vector<AttributedString::Replacement> attachments;
    qsizetype opening = string.indexOf(head);
    while (opening >= 0) {
        const qsizetype nameStart = opening + head.size();
        const qsizetype closing = string.indexOf(tail, nameStart);
        if (closing < 0)
            throw std::out_of_range("an attachment marker has no end");
        const QString name = string.sliced(nameStart, closing - nameStart);
        FileWrapper::Pointer wrapper = loadAttachment(folder, name, error);
        if (!wrapper)
            return false;
        const qsizetype end = closing + tail.size();
        const auto attachment = std::make_shared<platform::TextAttachment>(std::move(wrapper));
        attachments.push_back(
            {{opening, end - opening}, AttributedString::withAttachment(attachment)});
        opening = string.indexOf(head, end);
    }
    text.replaceCharacters(attachments);
    return true;
}

bool NoteDocument::writeNoteFile(const AttributedString& text, const QString& path, Error* error)
{
    const auto note = std::make_shared<QLNoteFile>();
    note->setNoteText(text);
    AttributedString withCheckboxes = text;
    const QLNoteChecklistItems items =
        restoreChecklists(withCheckboxes, recoverChecklists(withCheckboxes));
    note->noteAttributes()->setChecklistItems(items);
    note->setNoteText(withCheckboxes);
    return note->writeToFile(path, error);
}
