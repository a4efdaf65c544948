// SPDX-License-Identifier: MIT
#include "tools/ImportDestination.h"

#include "platform/scripting/EmbeddedLibrary.h"
#include "tools/FilesFolderDestination.h"
#include "tools/LibraryDestination.h"
#include "tools/QuilleryDestination.h"

namespace {

// A library that the command line names, be it as a setting, is meant and no other.
bool namesLibrary(const ImportOptions& options)
{
    return !options.library.isEmpty() || options.setsKey(platform::embeddedLibrarySetting);
}

} // namespace

ImportDestination::~ImportDestination() = default;

std::unique_ptr<ImportDestination> ImportDestination::forOptions(const ImportOptions& options)
{
    if (!options.filesFolder.isEmpty())
        return std::make_unique<FilesFolderDestination>(options.filesFolder);
    if (!namesLibrary(options)) {
        const auto bus = std::make_shared<platform::DBusScriptingBridge>();
        if (bus->hasQuillery())
            return std::make_unique<QuilleryDestination>(bus);
    }
    return std::make_unique<LibraryDestination>(options.library);
}
