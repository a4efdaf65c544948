// SPDX-License-Identifier: MIT
#include "exports/EvernoteExportsFolder.h"

#include "exports/ExportsErrors.h"
#include "exports/NotesExport.h"
#include "exports/SummaryCache.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"

#include <QVersionNumber>

using platform::Error;
using platform::EvernoteNotebook;

namespace {

// What the folder does itself, Evernote does from this version on.
const QVersionNumber ownVersion(5, 2, 0);

// The numbers of a version as headers have it: "10.104.3", "6.x", "Evernote Mac 7.14 (458265)".
QVersionNumber versionIn(const QString& text)
{
    const auto digit = std::find_if(text.begin(), text.end(), [](QChar character) {
        return character >= u'0' && character <= u'9';
    });
    return QVersionNumber::fromString(QStringView(text).sliced(digit - text.begin()));
}

} // namespace

EvernoteExportsFolder::EvernoteExportsFolder(const QString& directory)
    : m_directory(directory)
    , m_lastError(std::make_shared<LastError>())
{
}

EvernoteExportsFolder::~EvernoteExportsFolder() = default;

QString EvernoteExportsFolder::defaultDirectory()
{
    return platform::StandardDirectories::documents() + QStringLiteral("/Evernote");
}

QString EvernoteExportsFolder::directoryOfSettings()
{
    const std::optional<QString> setting =
        platform::UserDefaults::standard().stringForKey(QStringLiteral("EvernoteExportsFolder"));
    return setting && !setting->isEmpty() ? *setting : defaultDirectory();
}

QString EvernoteExportsFolder::version()
{
    const SummaryCache cache(SummaryCache::pathForFolder(m_directory));
    QVersionNumber latest = ownVersion;
    for (const ExportFile& file : exportFilesIn(m_directory)) {
        if (file.problem)
            continue;
        const auto identity = FileIdentity::ofFile(file.path);
        const auto known = identity ? cache.summary(file.path, *identity) : std::nullopt;
        const NotebookSummary summary = known ? *known : NotebookSummary::ofHeader(file.path);
        latest = std::max(latest, versionIn(summary.version));
    }
    m_lastError->set(std::nullopt);
    // Readers look for a second number.
    return latest.segmentCount() > 1 ? latest.toString()
                                     : QStringLiteral("%1.0").arg(latest.majorVersion());
}

void EvernoteExportsFolder::activate() {}

std::vector<std::shared_ptr<EvernoteNotebook>> EvernoteExportsFolder::notebooks()
{
    const std::vector<ExportFile> files = exportFilesIn(m_directory);
    const auto listing =
        std::make_shared<NotebookListing>(SummaryCache::pathForFolder(m_directory), files);
    std::vector<std::shared_ptr<EvernoteNotebook>> notebooks;
    for (const ExportFile& file : files) {
        const auto notebook = std::make_shared<ExportedNotebook>(file, listing, m_lastError);
        listing->add(notebook);
        notebooks.push_back(notebook);
    }
    m_lastError->set(std::nullopt);
    return notebooks;
}

bool EvernoteExportsFolder::exportNotes(
    const std::vector<std::shared_ptr<platform::EvernoteNote>>& notes, const QString& to,
    ExportTags tags, ExportFormat format, Error* error)
{
    std::vector<SelectedNotesStream::Note> places;
    places.reserve(notes.size());
    m_exportWarnings.clear();
    Error failure;
    bool isDone = true;
    for (const auto& note : notes) {
        const auto* const own = dynamic_cast<const ExportedNote*>(note.get());
        isDone = isDone && own;
        if (own)
            places.push_back({own->index(), own->number()});
    }
    if (!isDone) {
        failure = {
            evernoteExportsErrorDomain, EvernoteExportsErrorForeignNote,
            platform::localizedString("The note does not belong to a file of exported notes.")};
    } else if (format == ExportFormat::ENEX) {
        isDone = exportAsEnex(places, to, tags, &failure);
    } else {
        isDone = exportAsPages(places, to, &m_exportWarnings, &failure);
    }
    if (isDone) {
        m_lastError->set(std::nullopt);
        return true;
    }
    m_lastError->set(failure);
    platform::setError(error, failure);
    return false;
}

std::optional<Error> EvernoteExportsFolder::lastError()
{
    return m_lastError->get();
}
