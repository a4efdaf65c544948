// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/XMLNode.h"

#include <QByteArrayView>
#include <QStringView>

#include <memory>
#include <optional>

namespace platform {

// An XML document as a tree. Entities and CDATA sections are text in it; what the document's DTD
// says is not, and nothing but the given bytes is read.
class XMLDocument {
public:
    // Yes: a document that is not well-formed is repaired, so that none of its text is lost, and an
    // entity that nobody declared stays as it was written.
    enum class Tidy { No, Yes };

    // Reads a document, strictly first. The names of HTML's entities are known; those that the
    // document declares are dropped. White space before the declaration is skipped. None, with a
    // text that names line and column, when the document cannot be read, has no content, or nests
    // above 2048 levels.
    [[nodiscard]] static std::optional<XMLDocument> fromData(QByteArrayView data, Tidy tidy,
                                                             Error* error = nullptr);

    [[nodiscard]] XMLElement rootElement() const { return m_root; }

    // What the XPath that consists of that name alone finds: the root element when it is so named.
    [[nodiscard]] std::optional<XMLElement> rootElementNamed(QStringView name) const;

    // The document was not well-formed.
    [[nodiscard]] bool wasRepaired() const { return m_repaired; }

private:
    XMLDocument(XMLElement root, bool repaired);

    XMLElement m_root;
    bool m_repaired;
};

} // namespace platform
