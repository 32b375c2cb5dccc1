// SPDX-License-Identifier: MIT
#include "engine/observers.h"

namespace corvane {

std::shared_ptr<const void> Observers::add(Observer observer) {
  auto handle = std::make_shared<const Observer>(std::move(observer));
  observers.push_back(handle);
  return handle;
}

void Observers::notify(const DisplayState& before, const DisplayState& now) {
  std::erase_if(observers, [](const auto& known) { return known.expired(); });
  // A copy, because an observer may add another one.
  for (const auto& known : std::vector(observers)) {
    if (const auto observer = known.lock()) (*observer)(before, now);
  }
}

}  // namespace corvane
