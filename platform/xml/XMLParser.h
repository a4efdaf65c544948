// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/InputStream.h"
#include "platform/xml/XMLParserDelegate.h"

#include <QString>

#include <atomic>

namespace platform {

// Reads an XML document of any size from a stream, event by event, in bounded memory.
//
// Nothing but the stream is ever read: no DTD, no external entity, no network. Entities that the
// document declares itself are dropped, never expanded; so are undeclared ones where the document
// names an external DTD, and elsewhere they are an error. Refused with an error: more than 256
// levels of elements, a tag, comment or processing instruction above 10 MB, more than 1,000
// attributes in a tag, and, in documents that are not UTF-8, a CDATA section above 10 MB.
class XMLParser {
public:
    static constexpr qsizetype defaultChunkSize = 64 * 1024;

    // chunkSize: how many bytes are asked of the stream at a time. The stream must outlive the
    // parser.
    explicit XMLParser(InputStream& stream, qsizetype chunkSize = defaultChunkSize);
    ~XMLParser();
    XMLParser(const XMLParser&) = delete;
    XMLParser& operator=(const XMLParser&) = delete;

    // Must be set before the parse and outlive it.
    void setDelegate(XMLParserDelegate* delegate) { m_delegate = delegate; }
    [[nodiscard]] XMLParserDelegate* delegate() const { return m_delegate; }

    // Parses on the calling thread; once. False when the document could not be read to its end,
    // which parserError() explains.
    [[nodiscard]] bool parse();

    // Ends the parse before the next event, from a delegate's call or from any thread, before the
    // parse too. parse() then returns false, with the error XMLParserErrorCode::DelegateAborted and
    // no call of parserParseErrorOccurred. From parserDidEndDocument on it changes nothing any
    // more.
    void abortParsing() { m_aborted.store(true, std::memory_order_relaxed); }
    [[nodiscard]] bool isAborted() const { return m_aborted.load(std::memory_order_relaxed); }

    // What ended the parse; a null error when nothing did. Domain xmlParserErrorDomain; the code is
    // the XML library's own; the text names line and column.
    [[nodiscard]] const Error& parserError() const { return m_error; }

    // Where the parser stands, from 1, during the delegate's calls; else 0. Columns count bytes.
    [[nodiscard]] qint64 lineNumber() const;
    [[nodiscard]] qint64 columnNumber() const;

private:
    class Run;

    InputStream& m_stream;
    qsizetype m_chunkSize;
    XMLParserDelegate* m_delegate = nullptr;
    std::atomic<bool> m_aborted = false;
    Error m_error;
    Run* m_run = nullptr;
};

} // namespace platform
