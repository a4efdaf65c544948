// SPDX-License-Identifier: MIT
#include "convert/ElementWalk.h"

using platform::XMLElement;
using platform::XMLNode;

// Not by recursion: a body may be nested as deeply as the reader lets through.
void forEachElement(const XMLElement& root, const std::function<void(XMLElement& element)>& visit)
{
    std::optional<XMLNode> node = root;
    while (node) {
        if (std::optional<XMLElement> element = node->toElement())
            visit(*element);
        std::optional<XMLNode> next = node->firstChild();
        while (!next && !(*node == root)) {
            next = node->nextSibling();
            if (!next)
                node = node->parent();
        }
        node = next;
    }
}
