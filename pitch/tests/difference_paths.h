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

/// A path's name in the letters that a test's name may have.
inline std::string pathTitle(const testing::TestParamInfo<DifferencePath>& info) {
  std::string title(info.param.name);
  std::erase_if(title, [](unsigned char c) { return std::isalnum(c) == 0; });
  return title;
}

/// A test that is run once for each path this program was built with, and that says so where the
/// machine lacks one.
class OnEveryPath : public testing::TestWithParam<DifferencePath> {
 protected:
  void SetUp() override {
    if (!GetParam().runsHere()) {
      GTEST_SKIP() << "this machine lacks " << GetParam().name << ": nothing of it was tested";
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
