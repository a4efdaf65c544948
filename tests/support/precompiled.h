// SPDX-License-Identifier: MIT
// The headers of nearly every test.
#pragma once

#include "../../cmake/precompiled/precompiled.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "QtPrinting.h"
