// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace platform::html {

// Flat: only line breaks and images are left of the markup; for pages that mean to do harm.
enum class Nesting { Capped, Flat };

// Prepares a damaged page for the HTML parser.
//
// - Lists get names that HTML has no rules for (x-ul, x-ol), because the parser would end one list
// where a
//   list of the other kind begins in it.
// - The title's text goes.
// - Tags that nest deeper than any page of this world are taken out, their text stays: the parser
// looks
//   through all open elements at each end tag, so the depth decides whether its time is linear.
void repairMarkup(std::string_view text, Nesting nesting, std::string& repaired);

} // namespace platform::html
