// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/tests/engine_fixture.h"

namespace corvane {

using Error = std::optional<std::string>;

inline const Error none;
inline const Error denied =
    "Microphone access is off. Allow Corvane under Settings, Privacy, Microphone.";
inline const Error ask = "Tap Allow Microphone so Corvane can hear the note.";
inline const Error noMicrophone = "No microphone is available.";
inline const Error notStarted = "The microphone could not start.";

/// Whether the engine listens, and why it does not.
class ListeningTest : public EngineTest {
 protected:
  /// A whole start of the input.
  static auto wholeStart() { return testing::ElementsAre("stop", "reset", "installTap", "start"); }

  void startWith(RecordPermission permission) {
    world.permission->permission = permission;
    engine->start();
  }

  void answer(bool granted, RecordPermission permission) {
    world.permission->permission = permission;
    world.permission->requests.back()(granted);
    world.mainQueue->runAll();
  }

  void expectState(bool listening, bool allowed, const Error& error) {
    EXPECT_EQ(engine->state().listening, listening);
    EXPECT_EQ(engine->state().micAllowed, allowed);
    EXPECT_EQ(engine->state().errorText, error);
  }

  std::vector<std::string> inputCallsOf(const std::function<void()>& action) {
    world.input->calls.clear();
    action();
    return world.input->calls;
  }
};

}  // namespace corvane
