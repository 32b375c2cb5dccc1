#include "tests/support/fuzzer_inputs.h"

namespace corvane {
namespace {

TEST(EngineSession, KeepsItsPromisesWhateverUserPlayerAndServerDo) {
  runFuzzer(20, 1000);
}

}  // namespace
}  // namespace corvane
