// SPDX-License-Identifier: MIT
#include "tests/support/fuzzer_inputs.h"

namespace corvane {
namespace {

TEST(EngineSession, KeepsItsInvariantsForAnyInput) {
  runFuzzer(10, 1000);
}

}  // namespace
}  // namespace corvane
