// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

// Where the browser finds what is new: the page that was installed with the program, else the one
// on the web.
[[nodiscard]] QUrl releaseNotesAddress();
