// SPDX-License-Identifier: MIT
#include "platform/qt/settings_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <condition_variable>
#include <mutex>

#include "platform/qt/qt_preferences.h"
#include "platform/qt/tests/settings_folder.h"
#include "tests/support/figure.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Intercepts system calls, counts them and can make the disk slow.
struct SlowDisk {
  void setBusy(bool now) {
    const std::lock_guard held(lock);
    isBusy = now;
    changed.notify_all();
  }
  int count(int SlowDisk::* calls) {
    const std::lock_guard held(lock);
    return this->*calls;
  }

  std::mutex lock;
  std::condition_variable changed;
  bool isBusy = false;  ///< `fsync` waits until it is not
  int syncs = 0;        ///< begun
  int lockings = 0;     ///< attempts
  int givenUp = 0;      ///< waits that timed out
};

SlowDisk disk;

}  // namespace
}  // namespace corvane

/// `--wrap` links the program's calls to these functions and __real_ to the system.
extern "C" int __real_fsync(int file);
extern "C" int __wrap_fsync(int file) {
  using namespace corvane;
  std::unique_lock held(disk.lock);
  ++disk.syncs;
  if (!disk.changed.wait_for(held, 30s, [] { return !disk.isBusy; })) ++disk.givenUp;
  held.unlock();
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
  SettingsWriterTest() { disk.syncs = disk.lockings = disk.givenUp = 0; }

  /// Holds the lock like another program that writes; closing releases it.
  int holdTheFolder() const {
    const int theirs = open(folder.filePath("corvane").toLocal8Bit().constData(), O_RDONLY);
    EXPECT_EQ(__real_flock(theirs, LOCK_EX), 0);
    return theirs;
  }

  static bool syncsOnce() {
    return eventually([] { return disk.count(&SlowDisk::syncs) == 1; });
  }
};

TEST_F(SettingsWriterTest, ASlowDiskDoesNotBlockTheMainThread) {
  disk.setBusy(true);
  QtPreferences preferences(path);
  Clock::duration longest{0};
  for (int i = 0; i < 10; ++i) {
    const auto begun = Clock::now();
    preferences.setNumber("tuner.a4", 430.0 + i);
    QCoreApplication::processEvents();
    longest = std::max(longest, Clock::now() - begun);
    ASSERT_TRUE(syncsOnce());
  }
  figure("ms for which the main thread is held by a choice while the disk is busy",
         std::chrono::duration<double, std::milli>(longest).count());
  EXPECT_EQ(read(), "");
  disk.setBusy(false);
  EXPECT_TRUE(saves("tuner.a4=439"));
  EXPECT_EQ(disk.count(&SlowDisk::givenUp), 0) << "the main thread waited for the disk";
}

TEST_F(SettingsWriterTest, OfChoicesOnABusyDiskTheLastIsWritten) {
  disk.setBusy(true);
  {
    SettingsWriter writer{SettingsFile(path)};
    writer.write({{"a", "1"}});
    ASSERT_TRUE(syncsOnce());
    writer.write({{"a", "2"}});
    writer.write({{"a", "3"}});
    disk.setBusy(false);
  }
  EXPECT_EQ(read(), "[General]\na=3\n");
  EXPECT_EQ(disk.count(&SlowDisk::syncs), 2);
}

TEST_F(SettingsWriterTest, DoesNotWriteWithoutAChange) {
  write("a=1");
  {
    SettingsWriter writer{SettingsFile(path)};
    writer.write({{"a", "1"}});
  }
  EXPECT_EQ(disk.count(&SlowDisk::syncs), 0);
  EXPECT_EQ(read(), "a=1");
}

TEST_F(SettingsWriterTest, RetriesWhileAnotherProgramHoldsTheFile) {
  const int theirs = holdTheFolder();
  QtPreferences preferences(path);
  const auto begun = Clock::now();
  preferences.setNumber("a", 1);
  ASSERT_TRUE(eventually([] { return disk.count(&SlowDisk::lockings) >= 6; }));
  // 10, 20, 40, 80 and 160 ms between the six attempts; a slow machine takes longer.
  EXPECT_GE(Clock::now() - begun, 310ms);
  EXPECT_EQ(read(), "");
  close(theirs);
  EXPECT_TRUE(saves("a=1"));
}

TEST_F(SettingsWriterTest, WaitsAtTheEndForAnotherProgram) {
  const int theirs = holdTheFolder();
  const auto begun = Clock::now();
  {
    SettingsWriter writer{SettingsFile(path)};
    writer.write({{"a", "1"}});
  }
  EXPECT_GE(Clock::now() - begun, 1s);
  EXPECT_EQ(read(), "");
  close(theirs);
}

}  // namespace
}  // namespace corvane
