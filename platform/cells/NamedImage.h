// SPDX-License-Identifier: MIT
#pragma once

#include <QSizeF>
#include <QString>

namespace platform {

// An image of the application's resources, by its name without extension. One pixel of the PNG file is one
// point.
class NamedImage {
public:
    explicit NamedImage(const QString& name);

    [[nodiscard]] const QString& name() const { return m_name; }
    // A path that QFile opens; empty when there is no such image.
    [[nodiscard]] const QString& path() const { return m_path; }
    // Points; nothing by nothing when there is no such image.
    [[nodiscard]] QSizeF size() const { return m_size; }

private:
    QString m_name;
    QString m_path;
    QSizeF m_size;
};

} // namespace platform
