// SPDX-License-Identifier: MIT
#include "platform/scripting/EmbeddedScriptingBridge.h"

#include "platform/scripting/QuilleryIdentifiers.h"

namespace platform {

bool EmbeddedScriptingBridge::isRunning(const QString&) { return false; }

std::shared_ptr<QuilleryApplication> EmbeddedScriptingBridge::runningQuillery(const QString&)
{
    return nullptr;
}

std::shared_ptr<QuilleryApplication>
EmbeddedScriptingBridge::installedQuillery(const QString& bundleIdentifier)
{
    return bundleIdentifier == quillery::identifier ? m_installed : nullptr;
}

} // namespace platform
