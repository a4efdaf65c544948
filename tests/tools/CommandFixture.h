// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScratchFolder.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QVariantMap>

#include <functional>

namespace test {

[[nodiscard]] inline QString text(const char* utf8) { return QString::fromUtf8(utf8); }

struct CommandResult {
    int status = -1; // -1 when a signal ended it
    QString output;
    QString errors;
    [[nodiscard]] QString lastLine() const { return output.trimmed().section(u'\n', -1); }
};

// Runs vupuge-import in a folder of its own.
class CommandTest : public ::testing::Test {
protected:
    // inChild: what the program's process does before it becomes the program.
    [[nodiscard]] CommandResult run(const QStringList& arguments,
                                    const std::function<void()>& inChild = {}) const;
    [[nodiscard]] CommandResult runIntoOut(const QStringList& files) const
    {
        return run(QStringList{text("--files-folder"), text("out")} + files);
    }
    void start(QProcess& process, const QStringList& arguments) const;

    // An ENEX file of these notes.
    QString file(const QString& name, const QByteArray& notes) const;
    QString file(const char* name, const QByteArray& notes) const { return file(text(name), notes); }
    [[nodiscard]] static QByteArray note(const QByteArray& title,
                                         const QByteArray& body = "<en-note>text</en-note>",
                                         const QByteArray& rest = {})
    {
        return "<note><title>" + title + "</title><content><![CDATA[" + body + "]]></content>" + rest
               + "</note>";
    }

    // The JSON that "--report report.json" wrote.
    [[nodiscard]] QJsonObject report() const;
    [[nodiscard]] QJsonArray runs() const { return report().value(text("runs")).toArray(); }
    // The records of the manifest in DIR/Evernote.
    [[nodiscard]] static QVariantMap entities(const QString& directory, const char* entity);

    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(name); }
    [[nodiscard]] bool exists(const char* name) const;

    ScratchFolder m_folder;
};

} // namespace test
