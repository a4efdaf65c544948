// SPDX-License-Identifier: MIT
#pragma once

#include "bench/generator/Random.h"

#include <QByteArray>

namespace bench {

// A picture that every decoder accepts: 8-bit grey noise in stored (uncompressed) blocks, so that
// its size is that of its pixels and nothing compresses it away.
[[nodiscard]] QByteArray picture(Random& random, int width, int height);

// A document of this many bytes: a PDF's first line, then noise.
[[nodiscard]] QByteArray document(Random& random, int bytes);

} // namespace bench
