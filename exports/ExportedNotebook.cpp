// SPDX-License-Identifier: MIT
#include "exports/ExportedNotebook.h"

#include "exports/SummaryCache.h"
#include "platform/operations/OperationQueue.h"

#include <algorithm>

using platform::Error;
using platform::EvernoteNote;

void LastError::set(const std::optional<Error>& error)
{
    const std::lock_guard lock(m_mutex);
    m_error = error;
}

std::optional<Error> LastError::get() const
{
    const std::lock_guard lock(m_mutex);
    return m_error;
}

NotebookListing::NotebookListing(const QString& cachePath, const std::vector<ExportFile>& files)
    : m_cachePath(cachePath)
{
    for (const ExportFile& file : files)
        m_files += file.path;
}

void NotebookListing::add(const std::shared_ptr<ExportedNotebook>& notebook)
{
    m_notebooks.push_back(notebook);
}

void NotebookListing::readSummaries()
{
    std::call_once(m_isRead, [this] {
        SummaryCache cache(m_cachePath);
        std::vector<std::shared_ptr<ExportedNotebook>> toRead;
        for (const auto& weak : m_notebooks) {
            const std::shared_ptr<ExportedNotebook> notebook = weak.lock();
            if (!notebook || notebook->m_file.problem)
                continue;
            const auto identity = FileIdentity::ofFile(notebook->path());
            const auto known = identity ? cache.summary(notebook->path(), *identity) : std::nullopt;
            notebook->m_read = {identity.value_or(FileIdentity()),
                                known.value_or(NotebookSummary())};
            if (!known)
                toRead.push_back(notebook);
        }
        // The longest first, so that none is still being read when all others are done.
        std::sort(toRead.begin(), toRead.end(), [](const auto& left, const auto& right) {
            return left->m_read->identity.size > right->m_read->identity.size;
        });
        platform::OperationQueue queue;
        for (const auto& notebook : toRead) {
            queue.addOperationWithBlock([&notebook] {
                notebook->m_read->summary = NotebookSummary::ofFile(notebook->path());
            });
        }
        queue.waitUntilAllOperationsAreFinished();
        for (const auto& notebook : toRead)
            cache.insert(notebook->path(), notebook->m_read->identity, notebook->m_read->summary);
        cache.save(m_files);
    });
}

ExportedNotebook::ExportedNotebook(ExportFile file, std::shared_ptr<NotebookListing> listing,
                                   std::shared_ptr<LastError> lastError)
    : m_file(std::move(file))
    , m_listing(std::move(listing))
    , m_lastError(std::move(lastError))
{
}

NotebookSummary ExportedNotebook::summary()
{
    if (m_file.problem)
        return {0, {}, {}, m_file.problem};
    m_listing->readSummaries();
    if (m_read && FileIdentity::ofFile(path()) == m_read->identity)
        return m_read->summary;
    return NotebookSummary::ofFile(path());
}

std::vector<std::shared_ptr<EvernoteNote>> ExportedNotebook::notes()
{
    std::optional<Error> failure = m_file.problem;
    std::vector<std::shared_ptr<EvernoteNote>> notes;
    if (!failure) {
        Error error;
        if (const auto index = NotebookIndex::ofFile(path(), &error)) {
            notes.reserve(index->notes().size());
            for (std::size_t number = 0; number < index->notes().size(); ++number)
                notes.push_back(std::make_shared<ExportedNote>(index, number));
        } else {
            failure = error;
        }
    }
    m_lastError->set(failure);
    return notes;
}
