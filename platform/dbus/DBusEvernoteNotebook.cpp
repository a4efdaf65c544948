// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusEvernoteNotebook.h"

#include <QSet>

namespace platform {

namespace {

// What can be wrong with a list whose types are right.
QString faultOf(const QList<BusNote>& notes)
{
    QSet<quint64> identifiers;
    for (const BusNote& note : notes) {
        if (identifiers.contains(note.identifier))
            return QStringLiteral("Notes: two notes are %1").arg(note.identifier);
        identifiers.insert(note.identifier);
        if (note.creationDate.size() > 1 || note.modificationDate.size() > 1 ||
            note.sourceURL.size() > 1)
            return QStringLiteral("Notes: two values for one of note %1").arg(note.identifier);
    }
    return {};
}

} // namespace

DBusEvernoteNotebook::DBusEvernoteNotebook(std::shared_ptr<RemoteApplication> remote,
                                           BusNotebook notebook, QString instance)
    : m_remote(std::move(remote))
    , m_notebook(std::move(notebook))
    , m_instance(std::move(instance))
{
}

std::optional<Error> DBusEvernoteNotebook::problem()
{
    return m_notebook.problem.isEmpty()
               ? std::nullopt
               : std::optional(scriptingError(ScriptingErrorCode::Refused, m_notebook.problem));
}

std::vector<std::shared_ptr<EvernoteNote>> DBusEvernoteNotebook::notes()
{
    const auto reply = m_remote->call({.member = QStringLiteral("Notes"),
                                       .arguments = {qulonglong(m_notebook.identifier)},
                                       .replySignature = QLatin1String(busNotesSignature),
                                       .limit = m_remote->limits().list,
                                       .instance = m_instance});
    if (!reply)
        return {};
    const auto listed = qdbus_cast<QList<BusNote>>(reply->arguments().constFirst());
    if (const QString fault = faultOf(listed); !fault.isEmpty()) {
        m_remote->fail(m_remote->invalidAnswer(fault));
        return {};
    }
    std::vector<std::shared_ptr<EvernoteNote>> notes;
    notes.reserve(static_cast<size_t>(listed.size()));
    for (const BusNote& note : listed)
        notes.push_back(std::make_shared<DBusEvernoteNote>(note, m_instance));
    return notes;
}

} // namespace platform
