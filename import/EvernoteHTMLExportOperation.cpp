// SPDX-License-Identifier: MIT
#include "import/EvernoteHTMLExportOperation.h"

#include "import/ExportErrors.h"
#include "platform/core/LocalizedStrings.h"

void EvernoteHTMLExportOperation::performExportForNotebook(const Notebook& notebook, const QString&,
                                                           const platform::manifest::Record&)
{
    exportNotebookDidEnd(notebook,
                         platform::Error(evernoteExportErrorDomain, EvernoteExportErrorNoConnection,
                                         platform::localizedString("Evernote cannot be asked for its notes yet.")));
}
