// SPDX-License-Identifier: MIT
// A static library needs one object; the precompiled header is what this target is for.
namespace {
[[maybe_unused]] constexpr int onlyTheHeaderMatters = 0;
}
