#include "engine/observers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::ElementsAre;

TEST(Observers, AreToldOfEveryFieldWhileTheirHandleLives) {
  Observers observers;
  std::vector<Field> told;
  auto handle = observers.add([&](Field field) { told.push_back(field); });
  observers.notify(Field::heard);
  observers.notify(Field::heard);
  handle.reset();
  observers.notify(Field::cents);
  EXPECT_THAT(told, ElementsAre(Field::heard, Field::heard));
}

TEST(Observers, MayAddAnotherWhileTheyAreTold) {
  Observers observers;
  int calls = 0;
  std::vector<std::shared_ptr<const void>> handles;
  handles.push_back(observers.add([&](Field) {
    if (handles.size() < 50) handles.push_back(observers.add([&](Field) { ++calls; }));
  }));
  observers.notify(Field::heard);
  EXPECT_EQ(calls, 1);
}

TEST(Observers, AreAllToldWhenOneDropsAnEarlierHandleAndAddsAnother) {
  Observers observers;
  auto earlier = observers.add([](Field) {});
  std::shared_ptr<const void> added;
  const auto dropping = observers.add([&](Field) {
    earlier.reset();
    if (added == nullptr) added = observers.add([](Field) {});
  });
  int told = 0;
  const auto later = observers.add([&](Field) { ++told; });
  observers.notify(Field::heard);
  EXPECT_EQ(told, 1);
}

TEST(Observers, MayDropTheirOwnHandleWhileTheyAreTold) {
  Observers observers;
  int calls = 0;
  std::shared_ptr<const void> handle;
  handle = observers.add([&](Field) {
    ++calls;
    handle.reset();
  });
  observers.notify(Field::heard);
  observers.notify(Field::heard);
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace corvane
