#include "engine/observers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Observers, AreToldOfEveryFieldWhileTheirHandleLives) {
  Observers observers;
  std::vector<Field> told;
  std::shared_ptr<const void> handle = observers.add([&](Field field) {
    told.push_back(field);
    if (field == Field::cents) handle.reset();
  });
  for (const Field field : {Field::heard, Field::heard, Field::cents, Field::heard}) {
    observers.notify(field);
  }
  EXPECT_THAT(told, testing::ElementsAre(Field::heard, Field::heard, Field::cents));
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

TEST(Observers, AreAllToldWhileOneDropsAddsAndNotifies) {
  Observers observers;
  auto earlier = observers.add([](Field) {});
  std::shared_ptr<const void> added;
  const auto busy = observers.add([&](Field) {
    if (added != nullptr) return;
    earlier.reset();
    added = observers.add([](Field) {});
    observers.notify(Field::cents);
  });
  std::vector<Field> told;
  const auto later = observers.add([&](Field field) { told.push_back(field); });
  observers.notify(Field::heard);
  EXPECT_THAT(told, testing::ElementsAre(Field::cents, Field::heard));
}

}  // namespace
}  // namespace corvane
