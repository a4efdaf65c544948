// SPDX-License-Identifier: MIT
#pragma once

#include "import/RunDirectories.h"
#include "platform/scripting/EvernoteApplication.h"
#include "platform/scripting/ScriptingBridge.h"

#include <QString>
#include <QUrl>

#include <functional>
#include <memory>

// The programs and places around the window. It is given them, so that it works the same with the
// real ones and with others.
struct Environment {
    // A proxy of the Evernote application; it gives null where Evernote is not installed. Absent
    // where nothing connects to Evernote at all: the window then offers the import of files alone.
    std::function<std::shared_ptr<platform::EvernoteApplication>()> evernote;
    // Where a run looks for the notes application; asked anew for each run.
    std::function<std::shared_ptr<platform::ScriptingBridge>()> scriptingBridge;
    // The folder in which people see what was imported; empty when there is none to show.
    std::function<QString()> libraryFolder;
    // A folder whose ENEX files count as Evernote's notebooks; empty for none.
    QString exportsFolder;
    RunDirectories directories = RunDirectories::standard();
    // The alert sound.
    std::function<void()> beep;
    // Opens a page, a file or a folder in the program that the person uses for it.
    std::function<void(const QUrl&)> openURL;
};
