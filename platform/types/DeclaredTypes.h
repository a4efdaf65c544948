// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace platform {

// A type and its tags. Lists are separated by blanks, the preferred member first.
struct DeclaredType {
    const char* identifier;
    const char* description;
    const char* conformsTo;
    const char* extensions;
    const char* mimeTypes;
};

// Where several types have a tag, the first is its preferred one.
[[nodiscard]] std::span<const DeclaredType> declaredTypes();

} // namespace platform
