// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace platform {

// A document that is not well-formed, made fit for an HTML parser, with what its angle brackets
// alone say about it.
struct RepairSource {
    explicit RepairSource(QByteArrayView data);

    // UTF-8 without a byte order mark, what cannot be decoded as U+FFFD, no control characters,
    // CDATA sections as plain text, neither declaration nor DOCTYPE.
    QByteArray markup;
    // The root element's name by the DOCTYPE, and the name in the first start tag, in lower case;
    // empty when there is none.
    QByteArray announcedRoot;
    QByteArray firstElement;
    // Something other than white space and markup; and the same before the first start tag.
    bool hasText = false;
    bool beginsWithText = false;

private:
    void lookAround();
};

} // namespace platform
