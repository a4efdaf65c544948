// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/EvernoteApplication.h"

#include <QByteArray>
#include <QMap>
#include <QSet>

#include <functional>

// A note as a test wants it, with the files that its exports are to write.
class ExportingNote : public platform::EvernoteNote {
public:
    QString title() override { return titleText; }
    QStringList tags() override { return tagNames; }
    QDateTime creationDate() override { return created; }
    QDateTime modificationDate() override { return modified; }
    QString noteLink() override { return link; }
    QString sourceURL() override { return source; }

    QString titleText;
    QStringList tagNames;
    QDateTime created;
    QDateTime modified;
    QString link;
    QString source;
    // Its part of an ENEX file; empty for a note that is left out.
    QByteArray enex;
    // What an export as HTML leaves in its folder, by relative path; none for no folder.
    QMap<QString, QByteArray> pages;
};

class ExportingNotebook : public platform::EvernoteNotebook {
public:
    QString name() override { return nameText; }
    std::vector<std::shared_ptr<platform::EvernoteNote>> notes() override { return allNotes; }
    quint64 numberOfNotes() override
    {
        if (onCount)
            onCount();
        return allNotes.size();
    }

    QString nameText;
    std::vector<std::shared_ptr<platform::EvernoteNote>> allNotes;
    std::function<void()> onCount;
};

// An Evernote that exports what its notes say.
class ExportingEvernote : public platform::EvernoteApplication {
public:
    QString version() override { return QStringLiteral("7.14"); }
    void activate() override {}
    std::vector<std::shared_ptr<platform::EvernoteNotebook>> notebooks() override;
    bool exportNotes(const std::vector<std::shared_ptr<platform::EvernoteNote>>& notes,
                     const QString& to, ExportTags tags, ExportFormat format,
                     platform::Error* error) override;
    QStringList lastExportWarnings() override { return warnings; }
    std::optional<platform::Error> lastError() override { return silence; }

    std::shared_ptr<ExportingNotebook> addNotebook(const QString& name);
    // A note with that title and text, the same in both formats.
    static std::shared_ptr<ExportingNote> addNote(ExportingNotebook& notebook, const QString& title,
                                                  const QByteArray& body = "text");
    // A page with that body.
    [[nodiscard]] static QByteArray page(const QByteArray& body);

    struct Export {
        QStringList titles;
        QString to;
        ExportTags tags;
        ExportFormat format;
    };
    std::vector<Export> exports;
    // Before anything is written.
    std::function<void(const QString& to)> onExport;
    // What an export says, whatever it writes.
    std::optional<platform::Error> failure;
    // It writes nothing then.
    bool writes = true;
    QStringList warnings;
    std::optional<platform::Error> silence;

private:
    std::vector<std::shared_ptr<ExportingNotebook>> m_notebooks;
};
