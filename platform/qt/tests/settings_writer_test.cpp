#include "platform/qt/settings_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <algorithm>

#include "platform/qt/qt_preferences.h"
#include "platform/qt/tests/settings_folder.h"
#include "tests/support/figure.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Stands between the program and the system, which it makes slow and whose calls it counts.
struct SlowDisk {
  std::mutex lock;
  std::condition_variable changed;
  bool isBusy = false;  ///< `fsync` waits until it is not
  int syncs = 0;        ///< begun
  int lockings = 0;     ///< tried
};

SlowDisk disk;

}  // namespace
}  // namespace corvane

/// The linker sends the program's calls to these and theirs to the system.
extern "C" int __real_fsync(int file);
extern "C" int __wrap_fsync(int file) {
  using namespace corvane;
  std::unique_lock held(disk.lock);
  ++disk.syncs;
  // Not for ever, so that a program that waits for it fails its test.
  disk.changed.wait_for(held, 2s, [] { return !disk.isBusy; });
  return __real_fsync(file);
}
extern "C" int __real_flock(int file, int operation);
extern "C" int __wrap_flock(int file, int operation) {
  const std::lock_guard held(corvane::disk.lock);
  ++corvane::disk.lockings;
  return __real_flock(file, operation);
}

namespace corvane {
namespace {

class SettingsWriterTest : public SettingsFolderTest {
 protected:
  SettingsWriterTest() {
    disk.syncs = disk.lockings = 0;
    disk.isBusy = false;
  }

  static void setBusy(bool busy) {
    {
      const std::lock_guard held(disk.lock);
      disk.isBusy = busy;
    }
    disk.changed.notify_all();
  }
  static int syncs() {
    const std::lock_guard held(disk.lock);
    return disk.syncs;
  }
  static int lockings() {
    const std::lock_guard held(disk.lock);
    return disk.lockings;
  }
};

TEST_F(SettingsWriterTest, ADiskThatIsSlowDoesNotHoldTheMainThread) {
  setBusy(true);
  QtPreferences preferences(path);
  Clock::duration longest{0};
  for (int i = 0; i < 10; ++i) {
    const auto begun = Clock::now();
    preferences.setNumber("tuner.a4", 430.0 + i);
    QCoreApplication::processEvents();
    longest = std::max(longest, Clock::now() - begun);
    ASSERT_TRUE(runUntil([] { return syncs() == 1; }));
  }
  EXPECT_LT(longest, 100ms);
  figure("ms for which the main thread is held by a choice while the disk is busy",
         std::chrono::duration<double, std::milli>(longest).count());
  EXPECT_EQ(read(), "");
  setBusy(false);
  EXPECT_TRUE(saves("tuner.a4=439"));
}

TEST_F(SettingsWriterTest, WhatIsChangedWhileTheDiskIsBusyIsWrittenTogether) {
  setBusy(true);
  {
    SettingsWriter writer{SettingsFile(path)};
    writer.write({{"a", "1"}});
    ASSERT_TRUE(runUntil([] { return syncs() == 1; }));
    writer.write({{"a", "2"}, {"b", "2"}});
    writer.write({{"c", "3"}});
    setBusy(false);
  }
  EXPECT_EQ(read(), "[General]\na=2\nb=2\nc=3\n");
  EXPECT_EQ(syncs(), 2);
}

TEST_F(SettingsWriterTest, ThatNothingChangesCostsNothing) {
  { SettingsWriter writer{SettingsFile(path)}; }
  EXPECT_EQ(syncs(), 0);
  EXPECT_EQ(lockings(), 0);
}

TEST_F(SettingsWriterTest, WhileAnotherProgramHoldsTheFileItTriesEverLessOften) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  const int theirs = open(folder.filePath("corvane").toLocal8Bit().constData(), O_RDONLY);
  ASSERT_EQ(__real_flock(theirs, LOCK_EX), 0);
  SettingsWriter writer{SettingsFile(path)};
  const auto begun = Clock::now();
  writer.write({{"a", "1"}});
  ASSERT_TRUE(runUntil([] { return lockings() >= 6; }));
  // 10, 20, 40, 80 and 160 ms between the six.
  EXPECT_GE(Clock::now() - begun, 310ms);
  EXPECT_EQ(read(), "");
  close(theirs);
  EXPECT_TRUE(saves("a=1"));
}

TEST_F(SettingsWriterTest, TheEndWaitsForAnotherProgramForASecond) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  const int theirs = open(folder.filePath("corvane").toLocal8Bit().constData(), O_RDONLY);
  ASSERT_EQ(__real_flock(theirs, LOCK_EX), 0);
  const auto begun = Clock::now();
  {
    SettingsWriter writer{SettingsFile(path)};
    writer.write({{"a", "1"}});
  }
  EXPECT_GE(Clock::now() - begun, 1s);
  EXPECT_LT(Clock::now() - begun, 5s);
  EXPECT_EQ(read(), "");
  close(theirs);
}

}  // namespace
}  // namespace corvane
