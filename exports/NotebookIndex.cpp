// SPDX-License-Identifier: MIT
#include "exports/NotebookIndex.h"

#include "enex/EnexModernizer.h"
#include "exports/EnexScanner.h"
#include "exports/ExportsErrors.h"
#include "exports/NotePropertiesReader.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/StandardDirectories.h"
#include "platform/files/FileManager.h"
#include "platform/xml/XMLParser.h"

#include <QTemporaryFile>

#include <cerrno>

using platform::Error;
using platform::InputStream;

NotebookIndex::NotebookIndex(QString path)
    : m_path(std::move(path))
{
}

NotebookIndex::~NotebookIndex() = default;

const QString& NotebookIndex::notesPath() const
{
    return m_copyPath.isEmpty() ? m_path : m_copyPath;
}

std::shared_ptr<const NotebookIndex> NotebookIndex::ofFile(const QString& path, Error* error)
{
    std::shared_ptr<NotebookIndex> index(new NotebookIndex(path));
    const std::optional<FileIdentity> before = FileIdentity::ofFile(path);
    if (!before) {
        const int reason = errno;
        platform::setError(error, platform::fileError(platform::FileAccess::Read, path, reason));
        return nullptr;
    }
    index->m_notesIdentity = *before;
    const bool isRead = index->findNotes(error) && index->readProperties(error);
    if (FileIdentity::ofFile(path) != before) {
        // Whatever was read, it may be half of the one and half of the other.
        platform::setError(error, fileChangedError(path));
        return nullptr;
    }
    return isRead ? index : nullptr;
}

bool NotebookIndex::findNotes(Error* error)
{
    for (;;) {
        const std::unique_ptr<InputStream> stream = InputStream::inputStreamWithPath(notesPath());
        if (!stream->open(error))
            return false;
        m_notes.clear();
        EnexScanner scanner(*stream);
        scanner.setNoteFound([this](qint64 start, qint64 end) {
            Note note;
            note.start = start;
            note.end = end;
            m_notes.push_back(std::move(note));
        });
        const EnexScanner::Outcome outcome = scanner.scan();
        if (outcome == EnexScanner::Outcome::Known)
            return true;
        if (outcome == EnexScanner::Outcome::Unreadable) {
            platform::setError(error, scanner.error());
            return false;
        }
        // The copy is written in the usual way; one that were not would be copied for ever.
        if (m_copy || !copyFile(error))
            return false;
    }
}

bool NotebookIndex::copyFile(Error* error)
{
    const QString folder = platform::StandardDirectories::temporary();
    m_copy = std::make_unique<QTemporaryFile>(folder + QStringLiteral("/Notebook-XXXXXX.enex"));
    if (folder.isEmpty() || !m_copy->open()) {
        platform::setError(error, exportNotWrittenError(folder, m_copy->errorString()));
        return false;
    }
    m_copyPath = m_copy->fileName();
    if (!EnexModernizer::writeModernizedCopy(m_path, *m_copy, error))
        return false;
    if (!m_copy->flush()) {
        platform::setError(error, exportNotWrittenError(m_copyPath, m_copy->errorString()));
        return false;
    }
    m_notesIdentity = FileIdentity::ofFile(m_copyPath).value_or(FileIdentity());
    return true;
}

bool NotebookIndex::readProperties(Error* error)
{
    const std::unique_ptr<InputStream> stream = InputStream::inputStreamWithPath(notesPath());
    platform::XMLParser parser(*stream);
    NotePropertiesReader reader;
    EnexModernizer modernizer(reader);
    parser.setDelegate(&modernizer);
    if (!parser.parse()) {
        platform::setError(error, parser.parserError());
        return false;
    }
    if (reader.notes().size() != m_notes.size()) {
        platform::setError(error, fileChangedError(m_path));
        return false;
    }
    for (std::size_t index = 0; index < m_notes.size(); ++index) {
        reader.notes()[index].start = m_notes[index].start;
        reader.notes()[index].end = m_notes[index].end;
    }
    m_notes = std::move(reader.notes());
    return true;
}
