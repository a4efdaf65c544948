// SPDX-License-Identifier: MIT
#include "formats/QLNoteFile.h"

#include "formats/ArchivedColors.h"
#include "formats/AttributedStringQLNoteExtensions.h"
#include "formats/FontFamilySubstitution.h"
#include "formats/QLNoteFileConstants.h"
#include "platform/core/Bundle.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/rtfd/RtfdPackage.h"

using platform::AttributedString;
using platform::Error;
using platform::FileWrapper;
using platform::Font;

namespace {

// Points; the size of a new note's text where the settings name none.
constexpr double newNoteFontSize = 14;

} // namespace

QString QLNoteFile::nameOfNewNote()
{
    return platform::localizedString("New Note");
}

std::optional<QString> QLNoteFile::oldWelcomeNotePath()
{
    return platform::Bundle::main().pathForResource(QStringLiteral("Welcome to Quillery"),
                                                    qlNoteFileExtension);
}

bool QLNoteFile::noteFileAtURLIsEmpty(const QUrl& url)
{
    const QString path = url.toLocalFile();
    if (platform::pathExtension(path) != qlNoteFileExtension)
        return false;
    const QString name = platform::stringByDeletingPathExtension(platform::lastPathComponent(path));
    if (!name.startsWith(nameOfNewNote()))
        return false;
    const std::shared_ptr<QLNoteFile> note = noteFileWithFileURL(url);
    return !note || note->noteText().isEmpty();
}

platform::TextAttributes QLNoteFile::defaultNoteAttributes()
{
    const platform::UserDefaults& defaults = platform::UserDefaults::standard();
    const QString fontName =
        defaults.stringForKey(QStringLiteral("DefaultNoteFontName")).value_or(QString());
    const float fontSize = defaults.floatForKey(QStringLiteral("DefaultNoteFontSize"));
    platform::TextAttributes attributes;
    attributes.font = Font::fontNamed(fontName, static_cast<double>(fontSize));
    if (!attributes.font)
        attributes.font = Font::userFont(newNoteFontSize);
    attributes.foregroundColor = colorForDefaultsKey(QStringLiteral("DefaultNoteTextColor"));
    return attributes;
}

QLNoteFile::QLNoteFile()
    : m_noteAttributes(std::make_shared<QLNoteAttributes>())
{
}

std::shared_ptr<QLNoteFile> QLNoteFile::copy() const
{
    auto copied = std::make_shared<QLNoteFile>();
    copied->setNoteText(m_noteText);
    copied->setNoteAttributes(m_noteAttributes ? m_noteAttributes->copy() : nullptr);
    return copied;
}

void QLNoteFile::setNoteText(const AttributedString& text)
{
    if (m_undoManager) {
        // The manager may outlive the note that it was lent to.
        m_undoManager->registerUndo([note = weak_from_this(), old = m_noteText] {
            if (const auto alive = note.lock())
                alive->setNoteText(old);
        });
    }
    m_noteText = text;
}

std::shared_ptr<QLNoteFile> QLNoteFile::noteFileWithFileURL(const QUrl& url, Error* error)
{
    const FileWrapper::Pointer package = FileWrapper::read(url.toLocalFile(), error);
    if (!package)
        return nullptr;
    auto note = std::make_shared<QLNoteFile>();
    platform::DocumentAttributes documentAttributes;
    std::optional<AttributedString> text =
        platform::attributedStringFromRtfd(*package, &documentAttributes, error);
    if (!text)
        return nullptr;
    substituteFontFamily(*text, Font::systemFont(Font::systemFontSize).family,
                         Font::userFont(newNoteFontSize).family);
    note->setDocumentAttributes(documentAttributes);
    note->readRecord(*package, *text);
    note->setNoteText(*text);
    return note;
}

void QLNoteFile::readRecord(const FileWrapper& package, AttributedString& text)
{
    const FileWrapper::Pointer child = package.childForKey(qlNoteAttributesFileName);
    if (child)
        m_noteAttributes = QLNoteAttributes::unarchivedFromData(child->contents());
    if (!m_noteAttributes)
        return;
    if (!child || m_noteAttributes->fileVersion() < QLNoteAttributes::currentFileVersion)
        m_noteAttributes->setChecklistItems(recoverChecklists(text));
    if (const std::optional<QLNoteChecklistItems> items = m_noteAttributes->checklistItems())
        m_noteAttributes->setChecklistItems(restoreChecklists(text, *items));
}

FileWrapper::Pointer QLNoteFile::fileWrapper(Error* error)
{
    if (m_noteAttributes && m_noteAttributes->backgroundColor())
        m_documentAttributes.backgroundColor = m_noteAttributes->backgroundColor();
    QLNoteChecklistItems items;
    const AttributedString stored =
        attributedStringByReplacingChecklists(m_noteText, &items, {0, m_noteText.length()});
    const FileWrapper::Pointer package = platform::rtfdFileWrapper(
        stored, {0, stored.length()}, m_documentAttributes, {qlNoteAttributesFileName}, error);
    if (!package)
        return nullptr;
    if (m_noteAttributes)
        m_noteAttributes->setChecklistItems(items);
    return addRecord(*package, error) ? package : nullptr;
}

bool QLNoteFile::addRecord(FileWrapper& package, Error* error)
{
    if (!m_noteAttributes)
        return true;
    const std::optional<QByteArray> archive =
        QLNoteAttributes::archivedData(m_noteAttributes, error);
    if (!archive)
        return false;
    package.addFileWrapper(FileWrapper::regularFile(*archive, qlNoteAttributesFileName));
    return true;
}
