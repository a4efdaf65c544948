// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/FileWrapper.h"

#include <QString>

#include <memory>
#include <optional>

namespace platform {

// What the attachment character (U+FFFC) stands for: a file, with the size at which it is shown.
// Subclasses are attachments that an application draws itself.
class TextAttachment {
public:
    explicit TextAttachment(std::shared_ptr<FileWrapper> fileWrapper = nullptr);
    virtual ~TextAttachment();

    [[nodiscard]] const std::shared_ptr<FileWrapper>& fileWrapper() const { return m_fileWrapper; }
    void setFileWrapper(std::shared_ptr<FileWrapper> wrapper)
    {
        m_fileWrapper = std::move(wrapper);
    }

    // A uniform type identifier, when the attachment is no file.
    [[nodiscard]] const QString& fileType() const { return m_fileType; }
    void setFileType(const QString& type) { m_fileType = type; }

    // Displayed size in points; 0 where the markup names none.
    struct Size {
        double width = 0;
        double height = 0;
        friend bool operator==(const Size&, const Size&) = default;
    };
    [[nodiscard]] Size size() const { return m_size; }
    void setSize(Size size) { m_size = size; }

private:
    std::shared_ptr<FileWrapper> m_fileWrapper;
    QString m_fileType;
    Size m_size;
};

} // namespace platform
