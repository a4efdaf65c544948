// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>

namespace platform {

// How much of a page is loaded. What goes beyond is left out of the page, or, where it is the main
// document itself, fails the load.
struct LoadLimits {
    // Of one resource, after decompression.
    qint64 resourceBytes = qint64(64) << 20;
    // Of all that the page and its frames hold; a resource that two frames show counts twice.
    qint64 pageBytes = qint64(256) << 20;
    int resources = 4000;
    // How often the page's documents and styles refer to anything, the same or not. What follows is not read.
    int references = 50000;
    int redirects = 20;
    int frames = 1000;
    // The main frame's children are at depth 1.
    int frameDepth = 16;
    // Without a byte from the resource's server. One that waits for its turn on a busy server is not idle.
    std::chrono::milliseconds idle = std::chrono::seconds(60);
};

} // namespace platform
