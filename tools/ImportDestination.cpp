// SPDX-License-Identifier: MIT
#include "tools/ImportDestination.h"

#include "tools/FilesFolderDestination.h"
#include "tools/LibraryDestination.h"

ImportDestination::~ImportDestination() = default;

std::unique_ptr<ImportDestination> ImportDestination::forOptions(const ImportOptions& options)
{
    if (options.filesFolder.isEmpty())
        return std::make_unique<LibraryDestination>(options.library);
    return std::make_unique<FilesFolderDestination>(options.filesFolder);
}
