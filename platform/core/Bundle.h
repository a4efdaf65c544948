// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace platform {

// The application's own resources and information.
class Bundle {
public:
    [[nodiscard]] static Bundle& main();

    // A path that QFile opens, of the resource name.type; none when there is no such resource. A folder
    // given with setResourceDirectory is looked at first, then the resources compiled in.
    [[nodiscard]] std::optional<QString> pathForResource(const QString& name, const QString& type) const;

    void setResourceDirectory(const QString& directory) { m_resourceDirectory = directory; }
    [[nodiscard]] const QString& resourceDirectory() const { return m_resourceDirectory; }

    // The version that users see, such as 3.5.3.
    [[nodiscard]] QString shortVersionString() const;

private:
    QString m_resourceDirectory;
};

// The operating system's name and version as a person would say it, such as
// "Debian GNU/Linux 12 (bookworm)".
[[nodiscard]] QString operatingSystemVersionString();

} // namespace platform
