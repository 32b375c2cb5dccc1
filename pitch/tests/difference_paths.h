// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "pitch/difference.h"

namespace corvane {

inline void PrintTo(const DifferencePath& path, std::ostream* out) {
  *out << path.name;
}

/// A path's name in characters that are valid in a test name.
inline std::string pathTitle(const testing::TestParamInfo<DifferencePath>& info) {
  std::string title(info.param.name);
  std::erase_if(title, [](unsigned char c) { return std::isalnum(c) == 0; });
  return title;
}

/// Runs a test once for each path in this build. Skips paths that the machine does not support.
class OnEveryPath : public testing::TestWithParam<DifferencePath> {
 protected:
  void SetUp() override {
    if (!GetParam().runsHere()) {
      GTEST_SKIP() << "this machine does not support " << GetParam().name;
    }
  }
};

inline std::vector<DifferencePath> pathsOfThisMachine() {
  std::vector<DifferencePath> runnable;
  for (const DifferencePath& path : differencePaths()) {
    if (path.runsHere()) runnable.push_back(path);
  }
  return runnable;
}

}  // namespace corvane
