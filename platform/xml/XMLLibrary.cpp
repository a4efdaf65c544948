// SPDX-License-Identifier: MIT
#include "platform/xml/XMLLibrary.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/xml/XMLParserError.h"

#include <libxml/globals.h>

namespace platform {

void XMLContextDeleter::operator()(xmlParserCtxt* context) const
{
    if (context->myDoc)
        xmlFreeDoc(context->myDoc);
    context->myDoc = nullptr;
    xmlFreeParserCtxt(context);
}

XMLLibraryErrors::XMLLibraryErrors()
{
    // Once in the life of the program; the language makes it safe from any thread.
    static const bool initialized = (xmlInitParser(), true);
    static_cast<void>(initialized);
    m_previous = xmlStructuredError;
    m_previousContext = xmlStructuredErrorContext;
    xmlSetStructuredErrorFunc(this, &XMLLibraryErrors::receive);
}

XMLLibraryErrors::~XMLLibraryErrors()
{
    xmlSetStructuredErrorFunc(m_previousContext, m_previous);
}

void XMLLibraryErrors::receive(void* self, xmlError* error)
{
    auto* errors = static_cast<XMLLibraryErrors*>(self);
    if (errors->m_listening && error && error->level >= XML_ERR_ERROR && errors->m_first.isNull())
        errors->m_first = errorFromLibrary(*error);
}

Error errorFromLibrary(const xmlError& error, qint64 skippedLines)
{
    QString text = QString::fromUtf8(error.message).trimmed();
    // In streams the library does not remember where a start tag stood, and says so in this way.
    text.replace(QLatin1String(" line 0 and "), QLatin1String(" and "));
    if (text.isEmpty())
        text = localizedString("The document is not well-formed");
    if (error.line > 0)
        text = textWithPlace(text, error.line + skippedLines, error.int2);
    return {xmlParserErrorDomain, error.code, text};
}

QString textWithPlace(const QString& text, qint64 line, qint64 column)
{
    return localizedString("%1 at line %2, column %3")
        .arg(text, QString::number(line), QString::number(column));
}

} // namespace platform
