// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/Fetch.h"

namespace platform {

// Reads a local file in steps. Only regular files are read: a pipe would never answer.
class FileFetch final : public Fetch {
public:
    FileFetch(const FetchRequest& request, const LoadLimits& limits);
    ~FileFetch() override;

    void cancel() override;

private:
    void begin() override;
    void read();
    void close();

    int m_descriptor = -1;
    qint64 m_size = 0;
    bool m_responded = false;
};

} // namespace platform
