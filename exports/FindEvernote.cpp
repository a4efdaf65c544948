// SPDX-License-Identifier: MIT
#include "exports/FindEvernote.h"

#include "exports/EvernoteExportsFolder.h"
#include "platform/dbus/DBusScriptingBridge.h"

#include <QFileInfo>

std::shared_ptr<platform::EvernoteApplication> findEvernote()
{
    if (auto application = platform::DBusScriptingBridge().installedEvernote())
        return application;
    const QString directory = EvernoteExportsFolder::directoryOfSettings();
    if (QFileInfo(directory).isDir())
        return std::make_shared<EvernoteExportsFolder>(directory);
    return nullptr;
}
