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
    FileWrapper::Pointer wrapper
        = QFileInfo(*path).isDir() ? FileWrapper::read(*path, error) : FileWrapper::fileOnDisk(*path, error);
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
    const QString name = defaults.stringForKey(QStringLiteral("DefaultNoteFontName")).value_or(QString());
    const float size = defaults.floatForKey(QStringLiteral("DefaultNoteFontSize"));
    return Font::fontNamed(name, static_cast<double>(size)).value_or(Font::userFont(standardFontSize));
}

AttributedString NoteDocument::textOfPage(const QString& pagePath, Error* error)
{
    const Font font = bodyFont();
    platform::HtmlImportOptions options;
    options.standardFontFamily = font.family;
    options.defaultFontSize = std::trunc(font.size);
    options.baseDirectory = QFileInfo(pagePath).path();
    options.preservedSpanDelimiters = platform::PreservedSpanDelimiters{attachmentmarker::head, attachmentmarker::tail};
    return platform::attributedStringFromHtmlFile(pagePath, options, error).value_or(AttributedString());
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

bool NoteDocument::replaceAttachmentMarkers(AttributedString& text, const QString& folder, Error* error)
{
    using namespace attachmentmarker;
    for (qsizetype position = 0; position < text.length();) {
        const qsizetype opening = text.string().indexOf(head, position);
        if (opening < 0)
            break;
        const qsizetype nameStart = opening + head.size();
        const qsizetype closing = text.string().indexOf(tail, nameStart);
        if (closing < 0)
            throw std::out_of_range("an attachment marker has no end");
        const QString name = text.string().sliced(nameStart, closing - nameStart);
        FileWrapper::Pointer wrapper = loadAttachment(folder, name, error);
        if (!wrapper)
            return false;
        const auto attachment = std::make_shared<platform::TextAttachment>(std::move(wrapper));
        text.replaceCharacters({opening, closing + tail.size() - opening}, AttributedString::withAttachment(attachment));
        position = opening + 1;
    }
    return true;
}

bool NoteDocument::writeNoteFile(const AttributedString& text, const QString& path, Error* error)
{
    const auto note = std::make_shared<QLNoteFile>();
    note->setNoteText(text);
    AttributedString withCheckboxes = text;
    const QLNoteChecklistItems items = restoreChecklists(withCheckboxes, recoverChecklists(withCheckboxes));
    note->noteAttributes()->setChecklistItems(items);
    note->setNoteText(withCheckboxes);
    return note->writeToFile(path, error);
}
