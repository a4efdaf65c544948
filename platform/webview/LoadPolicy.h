// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// Which address may load which.
//
// What came from the web loads nothing from local files. A local page loads local files from its own
// folder and the folders below it, links followed: a note's markup must not carry other files of the
// user's into an archive.
class LoadPolicy {
public:
    // The page is the address that the view was asked for; it may be loaded itself.
    explicit LoadPolicy(const QString& page);

    // origin is where the referring text came from: its own address, or for text without one (srcdoc,
    // data:) that of the document around it.
    [[nodiscard]] bool mayLoad(const QString& address, const QString& origin) const;

    // What a request may tell the server of where it was found: the whole address to the same server,
    // scheme and host to another one, nothing from a secure page to an insecure address or from a file.
    [[nodiscard]] static QString referrer(const QString& address, const QString& origin);

private:
    QString m_page;
    // Ends in a slash; empty when the page is no file.
    QString m_folder;
};

} // namespace platform
