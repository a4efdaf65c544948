// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/EvernoteRecords.h"
#include "platform/dbus/RemoteApplication.h"
#include "platform/scripting/EvernoteApplication.h"

namespace platform {

// A note as Evernote listed it.
class DBusEvernoteNote : public EvernoteNote {
public:
    // instance: the unique bus name of the Evernote that listed it.
    DBusEvernoteNote(BusNote note, QString instance)
        : m_note(std::move(note))
        , m_instance(std::move(instance))
    {
    }

    [[nodiscard]] QString title() override { return m_note.title; }
    [[nodiscard]] QStringList tags() override { return m_note.tags; }
    [[nodiscard]] QDateTime creationDate() override { return dateFromBus(m_note.creationDate); }
    [[nodiscard]] QDateTime modificationDate() override
    {
        return dateFromBus(m_note.modificationDate);
    }
    [[nodiscard]] QString noteLink() override { return m_note.noteLink; }
    [[nodiscard]] QString sourceURL() override { return m_note.sourceURL.value(0); }

    [[nodiscard]] quint64 identifier() const { return m_note.identifier; }
    [[nodiscard]] const QString& instance() const { return m_instance; }

private:
    const BusNote m_note;
    const QString m_instance;
};

// A notebook as Evernote listed it; its notes are asked for anew each time.
class DBusEvernoteNotebook : public EvernoteNotebook {
public:
    DBusEvernoteNotebook(std::shared_ptr<RemoteApplication> remote, BusNotebook notebook,
                         QString instance);

    [[nodiscard]] QString name() override { return m_notebook.name; }
    // Empty with the application's lastError() when Evernote did not answer.
    [[nodiscard]] std::vector<std::shared_ptr<EvernoteNote>> notes() override;
    // As listed with the notebook.
    [[nodiscard]] quint64 numberOfNotes() override { return m_notebook.numberOfNotes; }
    [[nodiscard]] std::optional<Error> problem() override;

private:
    const std::shared_ptr<RemoteApplication> m_remote;
    const BusNotebook m_notebook;
    const QString m_instance;
};

} // namespace platform
