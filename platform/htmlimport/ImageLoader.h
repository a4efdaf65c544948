// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/FileWrapper.h"

#include <QString>

#include <optional>
#include <string_view>

namespace platform::html {

// Finds the files that a page refers to: those in the base directory, and those that the reference
// itself holds (data:). Nothing is fetched, and no reference leads out of the base directory.
class ImageLoader {
public:
    explicit ImageLoader(const QString& baseDirectory);

    // Null when there is no such file.
    [[nodiscard]] std::shared_ptr<FileWrapper> load(std::string_view reference) const;

    // True for references to another place (http, ftp, cid …), which can only be linked to.
    [[nodiscard]] static bool isRemote(std::string_view reference);

    // A name to show for a reference that leads nowhere.
    [[nodiscard]] static QString displayName(std::string_view reference);

private:
    [[nodiscard]] std::shared_ptr<FileWrapper> fileNamed(const QString& name) const;
    [[nodiscard]] static std::shared_ptr<FileWrapper> dataFrom(std::string_view reference);

    QString m_baseDirectory; // canonical; empty when there is none
};

} // namespace platform::html
