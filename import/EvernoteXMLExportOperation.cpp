// SPDX-License-Identifier: MIT
#include "import/EvernoteXMLExportOperation.h"

#include "import/ExportErrors.h"
#include "platform/core/LocalizedStrings.h"

void EvernoteXMLExportOperation::performExportForNotebook(const Notebook& notebook, const QString&,
                                                           const platform::manifest::Record&)
{
    exportNotebookDidEnd(notebook,
                         platform::Error(evernoteExportErrorDomain, EvernoteExportErrorNoConnection,
                                         platform::localizedString("Evernote cannot be asked for its notes yet.")));
}
