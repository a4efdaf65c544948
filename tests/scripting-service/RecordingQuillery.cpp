// SPDX-License-Identifier: MIT
#include "scripting-service/RecordingQuillery.h"

#include "scripting-service/HoldFile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace test {

RecordingQuillery::RecordingQuillery(QString recordFile, QString holdFile, const QString& failure)
    : m_recordFile(std::move(recordFile))
    , m_holdFile(std::move(holdFile))
    , m_failure(failure)
{
}

void RecordingQuillery::activate()
{
    record({{QStringLiteral("call"), QStringLiteral("activate")}});
}

bool RecordingQuillery::importFiles(const QStringList& paths, ImportMode by, const QString& to,
                                    int withRating, const QString& withComments, int withLabel,
                                    const QStringList& withTags, platform::Error* error)
{
    record({{QStringLiteral("call"), QStringLiteral("importFiles")},
            {QStringLiteral("paths"), QJsonArray::fromStringList(paths)},
            {QStringLiteral("by"), static_cast<qint64>(by)},
            {QStringLiteral("to"), to},
            {QStringLiteral("withRating"), withRating},
            {QStringLiteral("withComments"), withComments},
            {QStringLiteral("withLabel"), withLabel},
            {QStringLiteral("withTags"), QJsonArray::fromStringList(withTags)}});
    waitForFile(m_holdFile);
    if (m_failure.isEmpty())
        return true;
    const QLatin1Char separator(':');
    platform::setError(error, {m_failure.section(separator, 0, 0),
                               m_failure.section(separator, 1, 1).toLongLong(),
                               m_failure.section(separator, 2)});
    return false;
}

void RecordingQuillery::record(const QJsonObject& call) const
{
    QFile file(m_recordFile);
    if (!m_recordFile.isEmpty() && file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(QJsonDocument(call).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace test
