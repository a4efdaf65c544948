// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusEvernoteService.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/dbus/BusText.h"
#include "platform/dbus/EvernoteRecords.h"

#include <QDir>

namespace platform {

namespace {

using ExportFormat = EvernoteApplication::ExportFormat;

bool isFormat(uint code)
{
    return code == static_cast<quint32>(ExportFormat::ENEX) ||
           code == static_cast<quint32>(ExportFormat::HTML);
}

QStringList busTexts(QStringList texts)
{
    for (QString& text : texts)
        text = busText(text);
    return texts;
}

BusNote recordOf(EvernoteNote& note, quint64 identifier)
{
    const QString source = note.sourceURL();
    return {identifier,
            busText(note.title()),
            busTexts(note.tags()),
            busDate(note.creationDate()),
            busDate(note.modificationDate()),
            busText(note.noteLink()),
            source.isNull() ? QStringList() : QStringList(busText(source))};
}

} // namespace

DBusEvernoteService::DBusEvernoteService(std::shared_ptr<EvernoteApplication> application,
                                         const QDBusConnection& connection)
    : ServiceObject(evernoteBusInterface(), connection)
    , m_application(std::move(application))
{
    registerEvernoteRecords();
    m_lists.setMaxConcurrentOperationCount(1);
    m_exports.setMaxConcurrentOperationCount(1);
    serveProperty(QStringLiteral("Version"), [this] { return m_application->version(); });
    serveMethod(QStringLiteral("Activate"), {}, [this](const QDBusMessage& call) {
        m_application->activate();
        answer(call);
    });
    const auto onListThread = [this](void (DBusEvernoteService::*handler)(const QDBusMessage&)) {
        return [this, handler](const QDBusMessage& call) {
            m_lists.addOperationWithBlock([this, handler, call] { (this->*handler)(call); });
        };
    };
    serveMethod(QStringLiteral("Notebooks"), {}, onListThread(&DBusEvernoteService::listNotebooks));
    serveMethod(QStringLiteral("Notes"), QStringLiteral("t"),
                onListThread(&DBusEvernoteService::listNotes));
    serveMethod(QStringLiteral("Export"), QStringLiteral("atsbu"),
                onListThread(&DBusEvernoteService::collectNotes));
}

DBusEvernoteService::~DBusEvernoteService()
{
    m_lists.waitUntilAllOperationsAreFinished();
    m_exports.waitUntilAllOperationsAreFinished();
}

bool DBusEvernoteService::refuseIfFailed(const QDBusMessage& call, bool isEmpty)
{
    const std::optional<Error> error = isEmpty ? m_application->lastError() : std::nullopt;
    if (error)
        refuse(call, QStringLiteral("Failed"), error->localizedDescription());
    return error.has_value();
}

void DBusEvernoteService::listNotebooks(const QDBusMessage& call)
{
    const auto notebooks = m_application->notebooks();
    if (refuseIfFailed(call, notebooks.empty()))
        return;
    QList<BusNotebook> records;
    for (const auto& notebook : notebooks) {
        const std::optional<Error> problem = notebook->problem();
        records.append({m_notebooks.identifierOf(notebook), busText(notebook->name()),
                        notebook->numberOfNotes(),
                        problem ? busText(problem->localizedDescription()) : QString()});
    }
    answer(call, {QVariant::fromValue(records)});
}

void DBusEvernoteService::listNotes(const QDBusMessage& call)
{
    const auto notebook = m_notebooks.object(call.arguments().constFirst().toULongLong());
    if (!notebook) {
        refuse(call, QStringLiteral("NoSuchNotebook"),
               localizedString("The notebook is not there any more."));
        return;
    }
    const auto notes = notebook->notes();
    if (refuseIfFailed(call, notes.empty()))
        return;
    QList<BusNote> records;
    for (const auto& note : notes)
        records.append(recordOf(*note, m_notes.identifierOf(note)));
    if (busSize(records) > longestBusList) {
        refuse(call, QStringLiteral("ListTooLong"),
               localizedString("The notebook \u201c%1\u201d holds more notes than can be listed.")
                   .arg(notebook->name()));
        return;
    }
    answer(call, {QVariant::fromValue(records)});
}

void DBusEvernoteService::collectNotes(const QDBusMessage& call)
{
    const QVariantList arguments = call.arguments();
    const QString path = arguments[1].toString();
    const uint format = arguments[3].toUInt();
    if (!QDir::isAbsolutePath(path) || !isFormat(format)) {
        refuseArguments(call, QStringLiteral("Not an absolute path and a format: %1, %2")
                                  .arg(path, QString::number(format)));
        return;
    }
    std::vector<std::shared_ptr<EvernoteNote>> notes;
    for (const qulonglong identifier : qdbus_cast<QList<qulonglong>>(arguments[0])) {
        notes.push_back(m_notes.object(identifier));
        if (!notes.back()) {
            refuse(call, QStringLiteral("NoSuchNote"),
                   localizedString("A note is not there any more."));
            return;
        }
    }
    const auto tags = arguments[2].toBool() ? EvernoteApplication::ExportTags::Yes
                                            : EvernoteApplication::ExportTags::No;
    m_exports.addOperationWithBlock([this, call, notes = std::move(notes), path, tags, format] {
        Error error;
        if (m_application->exportNotes(notes, path, tags, ExportFormat(format), &error))
            answer(call, {busTexts(m_application->lastExportWarnings())});
        else
            refuse(call, QStringLiteral("Failed"), error.localizedDescription());
    });
}

} // namespace platform
