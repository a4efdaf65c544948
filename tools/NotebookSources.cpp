// SPDX-License-Identifier: MIT
#include "tools/NotebookSources.h"

#include "exports/EvernoteExportsFolder.h"
#include "exports/FindEvernote.h"
#include "tools/TerminalText.h"
#include "tools/TotalCounts.h"

#include <QFileInfo>

std::shared_ptr<platform::EvernoteApplication> evernoteForOptions(const ImportOptions& options,
                                                                  QString* problem)
{
    if (!options.evernote.isEmpty()) {
        if (QFileInfo(options.evernote).isDir())
            return std::make_shared<EvernoteExportsFolder>(options.evernote);
        *problem = QStringLiteral("%1 is no folder.").arg(options.evernote);
        return nullptr;
    }
    if (auto evernote = findEvernote())
        return evernote;
    *problem = QStringLiteral(
                   "Evernote is not installed, and there is no folder %1 with exported notebooks. "
                   "--evernote names another.")
                   .arg(EvernoteExportsFolder::directoryOfSettings());
    return nullptr;
}

std::optional<Notebooks> notebooksNamed(const QStringList& names, const Notebooks& listed,
                                        QString* problem)
{
    Notebooks chosen;
    QStringList unknown;
    QStringList distinct = names;
    distinct.removeDuplicates();
    for (const QString& name : std::as_const(distinct)) {
        const std::size_t before = chosen.size();
        for (const auto& notebook : listed) {
            if (notebook->name() == name)
                chosen.push_back(notebook);
        }
        if (chosen.size() == before)
            unknown += QStringLiteral("\"%1\"").arg(name);
    }
    if (!unknown.isEmpty()) {
        *problem =
            QStringLiteral("There is no notebook %1; --list-notebooks shows which there are.")
                .arg(unknown.join(QStringLiteral(", ")));
        return std::nullopt;
    }
    if (names.isEmpty()) {
        for (const auto& notebook : listed) {
            if (!notebook->name().isEmpty())
                chosen.push_back(notebook);
        }
    }
    if (!chosen.empty())
        return chosen;
    *problem = QStringLiteral("There is no notebook to import.");
    return std::nullopt;
}

std::vector<ImportSource>
sourcesOfNotebooks(const Notebooks& notebooks,
                   const std::shared_ptr<platform::EvernoteApplication>& evernote)
{
    std::vector<ImportSource> sources;
    for (const auto& notebook : notebooks) {
        ImportSource source;
        source.kind = RunOutcome::Source::Notebook;
        source.name = notebook->name();
        if (const auto* const file = dynamic_cast<const ExportedNotebook*>(notebook.get()))
            source.path = file->path();
        source.problem = notebook->problem();
        source.newRun = [evernote, notebook] {
            return EvernoteExportOperation::exportOperationForApp(evernote, {notebook}, nullptr);
        };
        sources.push_back(source);
    }
    return sources;
}

void printNotebooks(const Notebooks& notebooks)
{
    for (const auto& notebook : notebooks) {
        const auto problem = notebook->problem();
        printLine(QStringLiteral("%1: %2").arg(
            notebook->name(),
            problem ? QStringLiteral("cannot be read: %1").arg(problem->localizedDescription())
                    : countedNotes(notebook->numberOfNotes())));
    }
}
