// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperation.h"

// A run over the Evernote application's notebooks, which the application exports as one HTML file per note.
//
// There is no connection to the application yet: every notebook ends with an error that says so.
class EvernoteHTMLExportOperation : public EvernoteExportOperation {
protected:
    void performExportForNotebook(const Notebook& notebook, const QString& toNotebookFilesPath,
                                  const platform::manifest::Record& targetFolder) override;
};
