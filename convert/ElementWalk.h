// SPDX-License-Identifier: MIT
#pragma once

#include "platform/xml/XMLNode.h"

#include <functional>

// Visits an element and every element within it, in document order. The visitor may change
// attributes, but not the tree.
void forEachElement(const platform::XMLElement& root,
                    const std::function<void(platform::XMLElement& element)>& visit);
