// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <vector>

namespace bench {

// The bodies of real notes as the pages that the import is given: those of every ENEX file in the
// folder that the environment variable VUPUGE_BENCH_NOTES names, or else of the exports beside this
// project. Empty where there are none.
[[nodiscard]] std::vector<QByteArray> corpusPages();

} // namespace bench
