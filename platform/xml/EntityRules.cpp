// SPDX-License-Identifier: MIT
#include "platform/xml/EntityRules.h"

#include <QString>

#include <libxml/HTMLparser.h>
#include <libxml/hash.h>

namespace platform {

namespace {

// More declarations are an attack on the memory; what they name counts as undeclared.
constexpr qsizetype maximumDeclarations = 10000;

// The library does not write to these; its structures just do not say so.
xmlChar* libraryText(const char* text)
{
    return reinterpret_cast<xmlChar*>(const_cast<char*>(text));
}

void freeDefault(void* defaults, const xmlChar*)
{
    xmlFree(defaults);
}

} // namespace

void EntityRules::declare(const xmlChar* name)
{
    if (m_declared.size() < maximumDeclarations)
        m_declared.insert(QByteArray(reinterpret_cast<const char*>(name)));
}

xmlEntity* EntityRules::entity(const xmlParserCtxt& context, const xmlChar* name)
{
    const QByteArray plainName =
        QByteArray::fromRawData(reinterpret_cast<const char*>(name), xmlStrlen(name));
    if (m_declared.contains(plainName))
        return standIn(context, name, {});
    if (m_htmlNames == HtmlNames::Known) {
        if (const htmlEntityDesc* known = htmlEntityLookup(name)) {
            const char32_t character = known->value;
            return standIn(context, name, QString::fromUcs4(&character, 1).toUtf8());
        }
    }
    if (m_undeclared == Undeclared::KeepAsWritten) {
        // In an attribute the library resolves references in what an entity stands for once more.
        const char* ampersand = context.instate == XML_PARSER_ATTRIBUTE_VALUE ? "&#38;" : "&";
        return standIn(context, name, ampersand + plainName + ';');
    }
    const bool mayBeDeclaredElsewhere =
        context.standalone != 1 && (context.hasExternalSubset != 0 || context.hasPErefs != 0);
    return mayBeDeclaredElsewhere ? standIn(context, name, {}) : nullptr;
}

xmlEntity* EntityRules::parameterEntity(const xmlChar* name)
{
    m_entity = {};
    m_entity.type = XML_ENTITY_DECL;
    m_entity.name = name;
    m_entity.orig = libraryText("");
    // Of the wrong kind on purpose: the library warns, takes the reference for seen and goes on.
    m_entity.etype = XML_INTERNAL_GENERAL_ENTITY;
    return &m_entity;
}

xmlEntity* EntityRules::standIn(const xmlParserCtxt& context, const xmlChar* name,
                                QByteArray content)
{
    m_content = std::move(content);
    m_entity = {};
    m_entity.type = XML_ENTITY_DECL;
    m_entity.name = name;
    // A null would make the library store a declaration's text here.
    m_entity.orig = libraryText("");
    m_entity.content = m_content.isEmpty() ? nullptr : libraryText(m_content.constData());
    m_entity.length = static_cast<int>(m_content.size());
    // "Looked at, holds no tag", so that the library need not look.
    m_entity.checked = 2;
    // The content of a predefined entity becomes characters whole and unparsed, but in an attribute
    // the library takes only its first byte; that of a general one becomes characters there.
    m_entity.etype = context.instate == XML_PARSER_ATTRIBUTE_VALUE ? XML_INTERNAL_GENERAL_ENTITY
                                                                   : XML_INTERNAL_PREDEFINED_ENTITY;
    return &m_entity;
}

void EntityRules::subsetBegins(xmlParserCtxt& context)
{
    context.replaceEntities = 0;
}

void EntityRules::subsetEnds(xmlParserCtxt& context)
{
    context.replaceEntities = 1;
    if (context.attsDefault) {
        xmlHashFree(context.attsDefault, freeDefault);
        context.attsDefault = nullptr;
    }
}

} // namespace platform
