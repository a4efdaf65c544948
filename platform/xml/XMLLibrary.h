// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

#include <libxml/parser.h>

#include <memory>

namespace platform {

struct XMLContextDeleter {
    // The tree under construction goes with the context; who wants it takes it out first.
    void operator()(xmlParserCtxt* context) const;
};
using XMLContext = std::unique_ptr<xmlParserCtxt, XMLContextDeleter>;

// While it lives, what the XML library reports outside any parser's own channel (failed conversions
// of the encoding above all) comes here instead of to standard error. For the creating thread only.
class XMLLibraryErrors {
public:
    XMLLibraryErrors();
    ~XMLLibraryErrors();
    XMLLibraryErrors(const XMLLibraryErrors&) = delete;
    XMLLibraryErrors& operator=(const XMLLibraryErrors&) = delete;

    // The first error that was reported; null when none was.
    [[nodiscard]] const Error& first() const { return m_first; }

    // While others use the library on this thread, what it reports is not for us. It stays
    // unprinted.
    void setListening(bool listening) { m_listening = listening; }

private:
    static void receive(void* self, xmlError* error);

    xmlStructuredErrorFunc m_previous;
    void* m_previousContext;
    Error m_first;
    bool m_listening = true;
};

// The library's error as ours, "text at line 12, column 5". skippedLines: lines of the source above
// what the library was given.
[[nodiscard]] Error errorFromLibrary(const xmlError& error, qint64 skippedLines = 0);

// The same form for our own texts, at the place where the context stands.
[[nodiscard]] QString textWithPlace(const QString& text, qint64 line, qint64 column);

} // namespace platform
