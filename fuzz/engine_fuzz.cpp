// SPDX-License-Identifier: MIT
// Actions of users, players and audio servers in any order: every invariant of the engine holds
// after each step.

#include "fuzz/engine_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvane::fuzz;
  EngineSession session(Bytes(data, size));
  // The length of a session. Every step checks the accumulated state.
  for (int steps = 0; steps < 400 && !session.isOver(); ++steps) session.step();
  return 0;
}
