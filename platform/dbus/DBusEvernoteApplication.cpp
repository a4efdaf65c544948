// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusEvernoteApplication.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/dbus/DBusEvernoteNotebook.h"

#include <QSet>

namespace platform {

namespace {

// More notes than any account may hold; what says so is mistaken.
constexpr quint64 mostNotes = std::numeric_limits<qint32>::max();

QString faultOf(const QList<BusNotebook>& notebooks)
{
    QSet<quint64> identifiers;
    for (const BusNotebook& notebook : notebooks) {
        if (identifiers.contains(notebook.identifier))
            return QStringLiteral("Notebooks: two notebooks are %1").arg(notebook.identifier);
        identifiers.insert(notebook.identifier);
        if (notebook.numberOfNotes > mostNotes)
            return QStringLiteral("Notebooks: %1 notes").arg(notebook.numberOfNotes);
    }
    return {};
}

} // namespace

DBusEvernoteApplication::DBusEvernoteApplication(const std::shared_ptr<BusConnection>& bus,
                                                 const CallLimits& limits, const QString& busName)
    : m_remote(std::make_shared<RemoteApplication>(bus, busName, evernoteBusInterface(), limits))
{
    registerEvernoteRecords();
}

QString DBusEvernoteApplication::version()
{
    return m_remote->version();
}

void DBusEvernoteApplication::activate()
{
    m_remote->activate();
}

std::vector<std::shared_ptr<EvernoteNotebook>> DBusEvernoteApplication::notebooks()
{
    const auto reply = m_remote->call({.member = QStringLiteral("Notebooks"),
                                       .arguments = {},
                                       .replySignature = QLatin1String(busNotebooksSignature),
                                       .limit = m_remote->limits().list});
    if (!reply)
        return {};
    const auto listed = qdbus_cast<QList<BusNotebook>>(reply->arguments().constFirst());
    if (const QString fault = faultOf(listed); !fault.isEmpty()) {
        m_remote->fail(m_remote->invalidAnswer(fault));
        return {};
    }
    std::vector<std::shared_ptr<EvernoteNotebook>> notebooks;
    for (const BusNotebook& notebook : listed) {
        notebooks.push_back(
            std::make_shared<DBusEvernoteNotebook>(m_remote, notebook, reply->service()));
    }
    const std::lock_guard lock(m_mutex);
    m_instance = reply->service();
    return notebooks;
}

bool DBusEvernoteApplication::exportNotes(const std::vector<std::shared_ptr<EvernoteNote>>& notes,
                                          const QString& to, ExportTags tags, ExportFormat format,
                                          Error* error)
{
    Error unsendable;
    if (!m_remote->canSend({to}, &unsendable))
        return m_remote->fail(unsendable, error);
    QString instance;
    QList<qulonglong> identifiers;
    identifiers.reserve(static_cast<qsizetype>(notes.size()));
    for (const auto& note : notes) {
        const auto* const listed = dynamic_cast<const DBusEvernoteNote*>(note.get());
        if (!listed || (!instance.isEmpty() && listed->instance() != instance))
            return m_remote->fail(m_remote->gone(), error);
        instance = listed->instance();
        identifiers += listed->identifier();
    }
    if (notes.empty()) {
        const std::lock_guard lock(m_mutex);
        instance = m_instance;
    }
    const auto reply =
        m_remote->call({.member = QStringLiteral("Export"),
                        .arguments = {QVariant::fromValue(identifiers), to, tags == ExportTags::Yes,
                                      static_cast<quint32>(format)},
                        .replySignature = QStringLiteral("as"),
                        .limit = CallLimits::work,
                        .instance = instance},
                       error);
    const std::lock_guard lock(m_mutex);
    m_exportWarnings = reply ? reply->arguments().constFirst().toStringList() : QStringList();
    return reply.has_value();
}

QStringList DBusEvernoteApplication::lastExportWarnings()
{
    const std::lock_guard lock(m_mutex);
    return m_exportWarnings;
}

std::optional<Error> DBusEvernoteApplication::lastError()
{
    return m_remote->lastError();
}

} // namespace platform
