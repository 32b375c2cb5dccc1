// Anything that users, players and audio servers do, in any order: the engine keeps its promises
// after every step.

#include "fuzz/engine_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvane::fuzz;
  EngineSession session(Bytes(data, size));
  // As many as make a session; what one accumulates is looked at after each.
  for (int steps = 0; steps < 400 && !session.isOver(); ++steps) session.step();
  return 0;
}
