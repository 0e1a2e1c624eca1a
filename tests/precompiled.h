// SPDX-License-Identifier: GPL-3.0-or-later
// What nearly every test includes; the compiler reads it once for each test binary.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include <tl/expected.hpp>
