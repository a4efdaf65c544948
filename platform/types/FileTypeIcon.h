// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QStringView>

namespace platform {

// The icon of a type of file: where to look for it in the desktop's icon theme, and at which size
// it is wanted. The window draws it; what needs no window can name it.
struct FileTypeIcon {
    // Names by the icon naming specification, the most special first. Never empty: the last one is
    // that of any file.
    QStringList names;
    // Points.
    double width = 0;
    double height = 0;

    friend bool operator==(const FileTypeIcon&, const FileTypeIcon&) = default;
};

// extension: without its dot.
[[nodiscard]] FileTypeIcon iconForFileType(QStringView extension, double width, double height);

} // namespace platform
