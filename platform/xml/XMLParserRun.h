// SPDX-License-Identifier: MIT
#pragma once

#include "platform/xml/DocumentForm.h"
#include "platform/xml/EntityRules.h"
#include "platform/xml/InputGuard.h"
#include "platform/xml/XMLLibrary.h"
#include "platform/xml/XMLParser.h"

#include <exception>
#include <vector>

namespace platform {

// One parse: the bridge between an XMLParser and the XML library, whose frames no exception may
// cross.
class XMLParser::Run {
public:
    explicit Run(XMLParser& parser);

    // False when the parse failed or was aborted; throws what a delegate threw.
    [[nodiscard]] bool run(Error* error);

    [[nodiscard]] qint64 line() const;
    [[nodiscard]] qint64 column() const;

private:
    using Text = const xmlChar*;

    [[nodiscard]] bool readBeginning();
    [[nodiscard]] bool createContext();
    [[nodiscard]] bool fillChunk();
    [[nodiscard]] int read(char* buffer, int length);
    [[nodiscard]] bool documentIsUtf8() const;
    // Refuses an encoding that hides markup from the guard.
    void checkEncoding();

    // Nothing more is delivered, and the library finds the document's end at its next read. Gentler
    // than having it stop at once, when it would free the buffer that its callers still look into.
    void stop();
    void fail(const Error& error);
    // The first error of all that were seen; null when the document was good.
    [[nodiscard]] Error outcome() const;

    template <typename Call>
    void deliver(const Call& call);

    // The library hands a text over in pieces that mean nothing: one ends before the first letter
    // beyond ASCII, at each reference, and where its buffer ends. They are joined until the next
    // event.
    void collectText(const char* utf8, qsizetype length);
    void deliverText();

    static xmlSAXHandler handlers();
    static Run& of(void* run) { return *static_cast<Run*>(run); }

    XMLParser& m_parser;
    XMLLibraryErrors m_libraryErrors;
    EntityRules m_entities{EntityRules::HtmlNames::Unknown, EntityRules::Undeclared::DropOrRefuse};
    InputGuard m_guard;
    DocumentForm m_form = DocumentForm::Ascii;
    std::vector<char> m_chunk;
    qsizetype m_chunkStart = 0;
    qsizetype m_chunkEnd = 0;
    QByteArray m_text;
    bool m_atEnd = false;
    bool m_stopped = false;
    Error m_failure;
    std::exception_ptr m_exception;
    // Last, so that it goes first: freeing it may still report errors.
    XMLContext m_context;
};

} // namespace platform
