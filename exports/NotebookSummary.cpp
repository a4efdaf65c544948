// SPDX-License-Identifier: MIT
#include "exports/NotebookSummary.h"

#include "exports/EnexScanner.h"
#include "exports/ExportsErrors.h"
#include "exports/FileIdentity.h"
#include "platform/files/FileManager.h"
#include "platform/xml/XMLParser.h"

#include <cerrno>

using platform::Error;
using platform::InputStream;
using platform::XMLParser;

namespace {

// Counts by the parser itself, whose word is final.
class NoteCounter : public platform::XMLParserDelegate {
public:
    enum class Extent { WholeFile, Header };

    explicit NoteCounter(Extent extent)
        : m_extent(extent)
    {
    }

    [[nodiscard]] const NotebookSummary& summary() const { return m_summary; }

    void parserDidStartElement(XMLParser& parser, const QString&,
                               const platform::XMLAttributes& attributes) override
    {
        if (m_isInRoot)
            return;
        m_isInRoot = true;
        m_summary.application = attributes.value("application").value_or(QString());
        m_summary.version = attributes.value("version").value_or(QString());
        if (m_extent == Extent::Header)
            parser.abortParsing();
    }

    void parserDidEndElement(XMLParser&, const QString& name) override
    {
        if (name == QLatin1String("note"))
            ++m_summary.notes;
    }

private:
    Extent m_extent;
    bool m_isInRoot = false;
    NotebookSummary m_summary;
};

NotebookSummary summaryByParser(const QString& path)
{
    const std::unique_ptr<InputStream> stream = InputStream::inputStreamWithPath(path);
    XMLParser parser(*stream);
    NoteCounter counter(NoteCounter::Extent::WholeFile);
    parser.setDelegate(&counter);
    const bool isWhole = parser.parse();
    NotebookSummary summary = counter.summary();
    if (!isWhole)
        summary.problem = parser.parserError();
    return summary;
}

NotebookSummary summaryByScanner(const QString& path)
{
    NotebookSummary summary;
    const std::unique_ptr<InputStream> stream = InputStream::inputStreamWithPath(path);
    Error error;
    if (!stream->open(&error)) {
        summary.problem = error;
        return summary;
    }
    EnexScanner scanner(*stream);
    switch (scanner.scan()) {
    case EnexScanner::Outcome::Known:
        summary.notes = scanner.noteCount();
        summary.application = scanner.application();
        summary.version = scanner.version();
        return summary;
    case EnexScanner::Outcome::Unreadable:
        summary.problem = scanner.error();
        return summary;
    case EnexScanner::Outcome::Unknown:
        break;
    }
    return summaryByParser(path);
}

} // namespace

NotebookSummary NotebookSummary::ofFile(const QString& path)
{
    const std::optional<FileIdentity> before = FileIdentity::ofFile(path);
    if (!before) {
        const int reason = errno;
        return {0, {}, {}, platform::fileError(platform::FileAccess::Read, path, reason)};
    }
    NotebookSummary summary = summaryByScanner(path);
    // A file that is being written looks like one that is cut short.
    if (FileIdentity::ofFile(path) != before)
        summary.problem = fileChangedError(path);
    return summary;
}

NotebookSummary NotebookSummary::ofHeader(const QString& path)
{
    const std::unique_ptr<InputStream> stream = InputStream::inputStreamWithPath(path);
    XMLParser parser(*stream);
    NoteCounter counter(NoteCounter::Extent::Header);
    parser.setDelegate(&counter);
    static_cast<void>(parser.parse());
    return counter.summary();
}
