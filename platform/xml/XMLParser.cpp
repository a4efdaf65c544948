// SPDX-License-Identifier: MIT
#include "platform/xml/XMLParser.h"

#include "platform/xml/XMLParserRun.h"

#include <QScopeGuard>

namespace platform {

XMLParser::XMLParser(InputStream& stream, qsizetype chunkSize)
    : m_stream(stream)
    , m_chunkSize(chunkSize)
{
}

XMLParser::~XMLParser() = default;

bool XMLParser::parse()
{
    Run run(*this);
    m_run = &run;
    const auto forgetRun = qScopeGuard([this] { m_run = nullptr; });
    return run.run(&m_error);
}

qint64 XMLParser::lineNumber() const
{
    return m_run ? m_run->line() : 0;
}

qint64 XMLParser::columnNumber() const
{
    return m_run ? m_run->column() : 0;
}

} // namespace platform
