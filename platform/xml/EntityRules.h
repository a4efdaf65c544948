// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSet>

#include <libxml/parser.h>

namespace platform {

// What entity references in a document mean. An entity that the document declares itself stands for
// nothing, so that no reference can grow; the five predefined ones never get here.
class EntityRules {
public:
    enum class HtmlNames { Unknown, Known };
    // Of an entity that nobody declared: DropOrRefuse follows XML (dropped where a DTD that is not
    // read might declare it, else an error), KeepAsWritten makes the reference itself text.
    enum class Undeclared { DropOrRefuse, KeepAsWritten };

    EntityRules(HtmlNames htmlNames, Undeclared undeclared)
        : m_htmlNames(htmlNames)
        , m_undeclared(undeclared)
    {
    }

    void declare(const xmlChar* name);

    // The entity of that name, valid until the next call; null refuses the reference.
    [[nodiscard]] xmlEntity* entity(const xmlParserCtxt& context, const xmlChar* name);
    // A parameter entity that expands to nothing.
    [[nodiscard]] xmlEntity* parameterEntity(const xmlChar* name);

    // Around the internal subset: entity declarations in it must not reach the library's own store,
    // default attributes must not be added to elements.
    static void subsetBegins(xmlParserCtxt& context);
    static void subsetEnds(xmlParserCtxt& context);

private:
    [[nodiscard]] xmlEntity* standIn(const xmlParserCtxt& context, const xmlChar* name,
                                     QByteArray content);

    HtmlNames m_htmlNames;
    Undeclared m_undeclared;
    QSet<QByteArray> m_declared;
    QByteArray m_content;
    xmlEntity m_entity = {};
};

} // namespace platform
