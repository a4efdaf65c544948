// SPDX-License-Identifier: MIT
#include "scripting-service/Faults.h"

#include "platform/dbus/EvernoteRecords.h"

#include <QtDBus/QDBusMetaType>

#include <QVariantMap>

namespace test {

using platform::BusNote;
using platform::BusNotebook;

void Faults::add(Kind kind, const QString& when)
{
    QString call = when.section(QLatin1Char('='), 0, 0);
    if (!call.contains(QLatin1Char('@')))
        call += QStringLiteral("@1");
    m_faults.insert(call, {kind, when.section(QLatin1Char('='), 1)});
}

std::optional<Faults::Fault> Faults::faultOfNextCall(const QString& method)
{
    const QString call = QStringLiteral("%1@%2").arg(method).arg(++m_calls[method]);
    return m_faults.contains(call) ? std::optional(m_faults.value(call)) : std::nullopt;
}

QVariantList nonsense(const QString& name)
{
    platform::registerEvernoteRecords();
    qDBusRegisterMetaType<QMap<QString, QString>>();
    const QString version = QStringLiteral("Version");
    const QHash<QString, QVariantList> answers = {
        {QStringLiteral("no-values"), {}},
        {QStringLiteral("a-number"), {42}},
        {QStringLiteral("a-dictionary"),
         {QVariant::fromValue(QMap<QString, QString>{{version, QStringLiteral("3.5.3")}})}},
        {QStringLiteral("no-version"), {QVariantMap{{QStringLiteral("Other"), 1}}}},
        {QStringLiteral("an-empty-version"), {QVariantMap{{version, QString()}}}},
        {QStringLiteral("a-number-as-version"), {QVariantMap{{version, 3.5}}}},
        {QStringLiteral("a-relative-folder"),
         {QVariantMap{{version, QStringLiteral("3.5.3")},
                      {QStringLiteral("LibraryFolder"), QStringLiteral("../elsewhere")}}}},
        {QStringLiteral("two-of-one-notebook"),
         {QVariant::fromValue(QList<BusNotebook>{{.identifier = 1, .name = QStringLiteral("A")},
                                                 {.identifier = 1, .name = QStringLiteral("B")}})}},
        {QStringLiteral("too-many-notes"),
         {QVariant::fromValue(QList<BusNotebook>{
             {.identifier = 1, .numberOfNotes = std::numeric_limits<quint64>::max()}})}},
        {QStringLiteral("two-of-one-note"),
         {QVariant::fromValue(QList<BusNote>{{.identifier = 1}, {.identifier = 1}})}},
        {QStringLiteral("two-dates"),
         {QVariant::fromValue(QList<BusNote>{{.identifier = 1, .creationDate = {1, 2}}})}},
        {QStringLiteral("two-sources"),
         {QVariant::fromValue(QList<BusNote>{
             {.identifier = 1, .sourceURL = {QStringLiteral("a"), QStringLiteral("b")}}})}}};
    return answers.value(name);
}

} // namespace test
