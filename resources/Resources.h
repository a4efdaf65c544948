// SPDX-License-Identifier: MIT
#pragma once

// Makes the compiled-in resources known. A program calls it once at its start: the linker drops the
// registration of a static library's resources when nothing refers to it.
void registerResources();
