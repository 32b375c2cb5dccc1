// SPDX-License-Identifier: MIT
#include "engine/observers.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

DisplayState stateWith(const char* status) {
  DisplayState state;
  state.status = status;
  return state;
}

const DisplayState flat = stateWith("Flat");
const DisplayState sharp = stateWith("Sharp");

TEST(Observers, GetBothStatesWhileTheirHandleLives) {
  Observers observers;
  int calls = 0;
  std::shared_ptr<const void> handle =
      observers.add([&](const DisplayState& before, const DisplayState& now) {
        EXPECT_EQ(before, flat);
        EXPECT_EQ(now, sharp);
        if (++calls == 2) handle.reset();
      });
  for (int i = 0; i < 4; ++i) observers.notify(flat, sharp);
  EXPECT_EQ(calls, 2);
}

TEST(Observers, AddedDuringANotificationMissIt) {
  Observers observers;
  int calls = 0;
  std::vector<std::shared_ptr<const void>> handles;
  handles.push_back(observers.add([&](auto&, auto&) {
    for (int i = 0; i < 50; ++i) handles.push_back(observers.add([&](auto&, auto&) { ++calls; }));
  }));
  observers.notify(flat, sharp);
  EXPECT_EQ(calls, 0);
  handles.erase(handles.begin());
  observers.notify(flat, sharp);
  EXPECT_EQ(calls, 50);
}

TEST(Observers, AreAllCalledWhileOneDropsAddsAndNotifies) {
  Observers observers;
  auto earlier = observers.add([](auto&, auto&) {});
  std::shared_ptr<const void> added;
  const auto busy = observers.add([&](auto&, auto&) {
    if (added != nullptr) return;
    earlier.reset();
    added = observers.add([](auto&, auto&) {});
    observers.notify(sharp, flat);
  });
  std::vector<std::string> seen;
  const auto later = observers.add(
      [&](const DisplayState&, const DisplayState& now) { seen.push_back(now.status); });
  observers.notify(flat, sharp);
  EXPECT_EQ(seen, (std::vector<std::string>{"Flat", "Sharp"}));
}

}  // namespace
}  // namespace corvane
