// SPDX-License-Identifier: MIT
#include "platform/xml/XMLDocument.h"

#include "platform/xml/HtmlRepair.h"
#include "platform/xml/StrictReader.h"
#include "platform/xml/XMLParserError.h"

namespace platform {

namespace {

// What cannot be read for its size or depth cannot be repaired either.
bool isBeyondRepair(const Error& error)
{
    return error.code() == static_cast<qint64>(XMLParserErrorCode::LimitExceeded);
}

} // namespace

XMLDocument::XMLDocument(XMLElement root, bool repaired)
    : m_root(std::move(root))
    , m_repaired(repaired)
{
}

std::optional<XMLDocument> XMLDocument::fromData(QByteArrayView data, Tidy tidy, Error* error)
{
    const auto undeclared = tidy == Tidy::Yes ? EntityRules::Undeclared::KeepAsWritten
                                              : EntityRules::Undeclared::DropOrRefuse;
    Error strictError;
    std::shared_ptr<XMLTree> tree = readStrictly(data, {.undeclared = undeclared}, &strictError);
    const bool repaired = !tree && tidy == Tidy::Yes && !isBeyondRepair(strictError);
    Error repairError;
    if (repaired)
        tree = repairedTree(data, &repairError);
    if (!tree) {
        // The strict reader names the place.
        setError(error,
                 repairError.isNull() ? strictError : repairError.withUnderlyingError(strictError));
        return std::nullopt;
    }
    xmlNode* root = xmlDocGetRootElement(tree->document());
    return XMLDocument(XMLElement(std::move(tree), root), repaired);
}

std::optional<XMLElement> XMLDocument::rootElementNamed(QStringView name) const
{
    if (m_root.name() != name)
        return std::nullopt;
    return m_root;
}

} // namespace platform
