// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

// A note's folder for its page and attachments. It goes away with everything in it, at the latest
// when the object does.
class ScratchFolder {
public:
    explicit ScratchFolder(QString path);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    // The folder that it lies in must exist, and nothing in its place.
    [[nodiscard]] bool create(platform::Error* error = nullptr);
    // True when there is nothing left to remove.
    bool remove(platform::Error* error = nullptr);

private:
    QString m_path;
    bool m_exists = false;
};
