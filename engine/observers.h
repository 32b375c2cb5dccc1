// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "engine/display_state.h"

namespace corvane {

/// The observers of the engine's state. Main thread only.
class Observers {
 public:
  using Observer = std::function<void(const DisplayState& before, const DisplayState& now)>;

  /// `observer` is called for as long as the returned handle lives.
  [[nodiscard]] std::shared_ptr<const void> add(Observer observer);

  /// An observer may add observers, drop handles and call into the engine.
  void notify(const DisplayState& before, const DisplayState& now);

 private:
  std::vector<std::weak_ptr<const Observer>> observers;
};

}  // namespace corvane
