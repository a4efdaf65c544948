// SPDX-License-Identifier: MIT
#include "tools/CommandFixture.h"

#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

#include <QJsonDocument>

namespace test {

namespace {

// Milliseconds; generous, because others may want the processors too.
constexpr int patience = 120000;

} // namespace

void CommandTest::start(QProcess& process, const QStringList& arguments) const
{
    process.setWorkingDirectory(m_folder.path());
    process.start(text(VUPUGE_IMPORT), arguments);
    EXPECT_TRUE(process.waitForStarted(patience));
}

CommandResult CommandTest::run(const QStringList& arguments, const std::function<void()>& inChild) const
{
    QProcess process;
    if (inChild)
        process.setChildProcessModifier(inChild);
    start(process, arguments);
    EXPECT_TRUE(process.waitForFinished(patience));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString CommandTest::file(const QString& name, const QByteArray& notes) const
{
    return m_folder.write(name,
                          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + notes + "</en-export>");
}

QJsonObject CommandTest::report() const
{
    return QJsonDocument::fromJson(m_folder.read(text("report.json"))).object();
}

QVariantMap CommandTest::entities(const QString& directory, const char* entity)
{
    const auto list = platform::readPropertyList(directory + text("/Evernote/Evernote.qllibxml"));
    EXPECT_TRUE(list);
    return list.value_or(QVariant()).toMap().value(text("Entities")).toMap().value(text(entity)).toMap();
}

bool CommandTest::exists(const char* name) const { return platform::fileExistsAtPath(path(name)); }

} // namespace test
