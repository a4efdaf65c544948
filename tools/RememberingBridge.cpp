// SPDX-License-Identifier: MIT
#include "tools/RememberingBridge.h"

namespace {

class RememberingQuillery : public platform::QuilleryApplication {
public:
    RememberingQuillery(std::shared_ptr<platform::QuilleryApplication> application,
                        std::shared_ptr<std::optional<RememberingBridge::Import>> import)
        : m_application(std::move(application))
        , m_import(std::move(import))
    {
    }

    [[nodiscard]] QString version() override { return m_application->version(); }
    void activate() override { m_application->activate(); }
    [[nodiscard]] bool importFiles(const QStringList& paths, ImportMode by, const QString& to,
                                   int withRating, const QString& withComments, int withLabel,
                                   const QStringList& withTags, platform::Error* error) override
    {
        platform::Error failure;
        if (m_application->importFiles(paths, by, to, withRating, withComments, withLabel, withTags,
                                       &failure)) {
            *m_import = {paths, std::nullopt};
            return true;
        }
        *m_import = {paths, failure};
        platform::setError(error, failure);
        return false;
    }
    [[nodiscard]] std::optional<platform::Error> lastError() override
    {
        return m_application->lastError();
    }

private:
    const std::shared_ptr<platform::QuilleryApplication> m_application;
    const std::shared_ptr<std::optional<RememberingBridge::Import>> m_import;
};

} // namespace

RememberingBridge::RememberingBridge(std::shared_ptr<platform::ScriptingBridge> bridge)
    : m_bridge(std::move(bridge))
    , m_import(std::make_shared<std::optional<Import>>())
{
}

bool RememberingBridge::isRunning(const QString& bundleIdentifier)
{
    return m_bridge->isRunning(bundleIdentifier);
}

std::shared_ptr<platform::QuilleryApplication>
RememberingBridge::runningQuillery(const QString& bundleIdentifier)
{
    return remembering(m_bridge->runningQuillery(bundleIdentifier));
}

std::shared_ptr<platform::QuilleryApplication>
RememberingBridge::installedQuillery(const QString& bundleIdentifier)
{
    return remembering(m_bridge->installedQuillery(bundleIdentifier));
}

std::shared_ptr<platform::QuilleryApplication>
RememberingBridge::remembering(const std::shared_ptr<platform::QuilleryApplication>& application)
{
    return application ? std::make_shared<RememberingQuillery>(application, m_import) : nullptr;
}

std::optional<RememberingBridge::Import> RememberingBridge::takeImport()
{
    return std::exchange(*m_import, std::nullopt);
}
