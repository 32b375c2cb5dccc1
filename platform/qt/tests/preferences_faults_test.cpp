// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDateTime>
#include <QFileInfo>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "platform/qt/qt_preferences.h"
#include "platform/qt/tests/settings_folder.h"
#include "tests/support/figure.h"

namespace corvane {
namespace {

using testing::Optional;

const QByteArray saved = "[General]\ntuner.a4=415\ntuner.instrument=bass\n";

class PreferencesFaults : public SettingsFolderTest {
 protected:
  QStringList files() const { return QDir(folder.filePath("corvane")).entryList(QDir::Files); }

  void expectSavedChoices() const {
    const QtPreferences preferences(path);
    EXPECT_THAT(preferences.number("tuner.a4"), Optional(415.0));
    EXPECT_THAT(preferences.string("tuner.instrument"), Optional(std::string("bass")));
  }

  /// A run of the program with one choice, which it keeps even if it cannot be saved.
  void choose(double a4) const {
    QtPreferences preferences(path);
    preferences.setNumber("tuner.a4", a4);
    QCoreApplication::processEvents();
    EXPECT_THAT(preferences.number("tuner.a4"), Optional(a4));
  }
};

/// Runs `body` in another process, whose failures fail the test.
template <class Body>
pid_t startProgram(Body body) {
  const pid_t program = fork();
  if (program == 0) {
    body();
    std::cout.flush();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  return program;
}

int statusOf(pid_t program) {
  int status = -1;
  waitpid(program, &status, 0);
  return status;
}

TEST_F(PreferencesFaults, AnEmptyOrCorruptFileIsReplacedByTheNextChoice) {
  for (const QByteArray& content :
       {QByteArray(""), QByteArray("\x00\xff[[[\n=\n\x7f garbage", 18)}) {
    write(content);
    EXPECT_EQ(QtPreferences(path).number("tuner.a4"), std::nullopt);
    choose(415.0);
    EXPECT_EQ(read(), "[General]\ntuner.a4=415\n");
  }
}

TEST_F(PreferencesFaults, WhatIsStillReadableInADamagedFileIsKept) {
  write(QByteArray("\x00\xff[[[\n=\n", 8) + saved + "tuner.left=\x01\ntuner.tun");
  expectSavedChoices();
  {
    QtPreferences(path).setBoolean("tuner.left", true);
  }
  expectSavedChoices();
  EXPECT_EQ(read(), saved + "tuner.left=true\n");
}

TEST_F(PreferencesFaults, AFolderInItsPlaceIsNotChanged) {
  ASSERT_TRUE(QDir(path).mkpath("inside"));
  choose(415.0);
  EXPECT_TRUE(QDir(path + "/inside").exists());
  EXPECT_EQ(files(), QStringList());
}

TEST_F(PreferencesFaults, APipeInItsPlaceDoesNotBlock) {
  ASSERT_EQ(mkfifo(path.toLocal8Bit().constData(), 0600), 0);
  choose(415.0);
  EXPECT_TRUE(std::filesystem::is_fifo(path.toStdString()));
}

TEST_F(PreferencesFaults, ALinkInItsPlaceIsFollowed) {
  const QString real = folder.filePath("real.conf");
  ASSERT_TRUE(QFile::link(real, path));
  for (const QByteArray& before : {QByteArray("[General]\n"), QByteArray(saved)}) {
    write(before);
    choose(432.0);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_THAT(QtPreferences(real).number("tuner.a4"), Optional(432.0));
  }
}

/// Root may read and write everything, so the process changes its user.
class OfAnotherUser : public PreferencesFaults {
 protected:
  void asAnybody(const std::function<void()>& body) {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0) {
      for (const QString& file : {folder.path(), folder.filePath("corvane"), path}) {
        ASSERT_EQ(chown(file.toLocal8Bit().constData(), nobody, nobody), 0) << strerror(errno);
      }
    }
    EXPECT_EQ(statusOf(startProgram([&] {
                ASSERT_TRUE(geteuid() != 0 || setresuid(nobody, nobody, nobody) == 0);
                body();
              })),
              0);
  }
  void permit(const QString& file, int mode) const {
    ASSERT_EQ(chmod(file.toLocal8Bit().constData(), static_cast<mode_t>(mode)), 0);
  }
};

TEST_F(OfAnotherUser, AnUnreadableFileIsNotReplacedByDefaults) {
  write(saved);
  permit(path, 0200);
  asAnybody([this] {
    EXPECT_EQ(QtPreferences(path).number("tuner.a4"), std::nullopt);
    choose(432.0);
  });
  permit(path, 0600);
  EXPECT_EQ(read(), saved);
  expectSavedChoices();
}

TEST_F(OfAnotherUser, AReadOnlyFileOrFolderIsReadAndNotChanged) {
  write(saved);
  const QString inside = folder.filePath("corvane");
  for (const auto& [file, readOnly, usual] : {std::tuple(path, 0400, 0600), {inside, 0500, 0700}}) {
    asAnybody([&] {
      permit(file, readOnly);
      expectSavedChoices();
      choose(432.0);
      permit(file, usual);
    });
    EXPECT_EQ(read(), saved);
    EXPECT_EQ(files(), QStringList("corvane.conf"));
  }
}

/// Lets this process mount disks: without root in a user namespace that maps its own user, since an
/// unmapped user cannot create files.
bool mayMount() {
  if (unshare(CLONE_NEWNS) == 0) return true;
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
  std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
  return true;
}

/// Mounts a disk of four blocks at `folder`, visible to this process only.
bool mountSmallDisk(const QString& folder) {
  if (!mayMount()) return false;
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("small", folder.toLocal8Bit().constData(), "tmpfs", 0, "size=16k") == 0;
}

TEST_F(PreferencesFaults, AFullDiskLosesNoSavedChoice) {
  constexpr int notPermitted = 77;
  const pid_t program = startProgram([this] {
    const QString disk = folder.filePath("corvane");
    if (!mountSmallDisk(disk)) _exit(notPermitted);
    write(saved);
    QFile ballast(disk + "/ballast");
    ASSERT_TRUE(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (ballast.write(QByteArray(4096, 'x')) > 0) continue;
    {
      QtPreferences preferences(path);
      const std::array<timespec, 2> longAgo{};
      ASSERT_EQ(utimensat(AT_FDCWD, disk.toLocal8Bit().constData(), longAgo.data(), 0), 0);
      const auto untouched = QFileInfo(disk).lastModified();
      preferences.setNumber("tuner.a4", 432.0);
      // The second file was created, did not fit, and was removed.
      EXPECT_TRUE(eventually([&] {
        return QFileInfo(disk).lastModified() != untouched &&
               files() == QStringList({"ballast", "corvane.conf"});
      }));
      EXPECT_EQ(read(), saved);
      ballast.remove();
      EXPECT_TRUE(saves("tuner.a4=432")) << "it is retried once there is room";
    }
    EXPECT_THAT(QtPreferences(path).string("tuner.instrument"), Optional(std::string("bass")));
  });
  const int status = statusOf(program);
  if (WIFEXITED(status) && WEXITSTATUS(status) == notPermitted) {
    GTEST_SKIP() << "this machine does not let a test mount a disk of its own";
  }
  EXPECT_EQ(status, 0);
}

TEST_F(PreferencesFaults, OfTwoProgramsThatWriteAtOnceBothAreSaved) {
  write(saved);
  const auto writer = [this](const char* key) {
    return startProgram([this, key] {
      QtPreferences preferences(path);
      for (int i = 1; i <= 100; ++i) {
        preferences.setNumber(key, i);
        ASSERT_TRUE(saves(QByteArray(key) + '=' + QByteArray::number(i)));
      }
    });
  };
  for (const pid_t program : {writer("one"), writer("other")}) {
    int status = 0;
    do {
      const QByteArray content = read();
      ASSERT_TRUE(content.startsWith("[General]\n")) << content.constData();
      ASSERT_TRUE(content.endsWith(saved.sliced(10))) << content.constData();
    } while (waitpid(program, &status, WNOHANG) == 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(read(), "[General]\none=100\nother=100\n" + saved.sliced(10));
  EXPECT_EQ(files(), QStringList("corvane.conf"));
}

/// As the engine does.
void save(QtPreferences& preferences, const char* instrument, const char* tuning) {
  preferences.setString("tuner.instrument", instrument);
  preferences.setString("tuner.tuning", tuning);
}

TEST_F(PreferencesFaults, OfTwoProgramsTheLastChoiceWinsAsAWhole) {
  write("[General]\nanother=1\n");
  QtPreferences one(path);
  QtPreferences other(path);
  save(other, "guitar", "g6-standard");
  ASSERT_TRUE(saves("tuner.tuning=g6-standard"));
  save(one, "bass", "b4-standard");
  ASSERT_TRUE(saves("tuner.tuning=b4-standard"));
  save(other, "guitar", "g6-dropd");
  ASSERT_TRUE(saves("tuner.tuning=g6-dropd"));
  EXPECT_EQ(read(), "[General]\nanother=1\ntuner.instrument=guitar\ntuner.tuning=g6-dropd\n");
  QFile::remove(path);
  save(one, "bass", "b5-dropa");
  ASSERT_TRUE(saves("tuner.tuning=b5-dropa"));
  EXPECT_EQ(read(), "[General]\ntuner.instrument=bass\ntuner.tuning=b5-dropa\n");
}

TEST_F(PreferencesFaults, AnythingNamedLikeTheSecondFileIsNeverOpened) {
  const QString second = path + ".new";
  const QString target = folder.filePath("target");
  QFile theirs(target);
  ASSERT_TRUE(theirs.open(QIODevice::WriteOnly) && theirs.write("theirs") == 6 && theirs.flush());
  ASSERT_TRUE(QFile::link(target, second));
  choose(415.0);
  EXPECT_EQ(theirs.size(), 6);
  EXPECT_EQ(read(), "[General]\ntuner.a4=415\n");
  // Opening a pipe would wait forever.
  ASSERT_EQ(mkfifo(second.toLocal8Bit().constData(), 0600), 0);
  choose(432.0);
  EXPECT_EQ(read(), "[General]\ntuner.a4=432\n");
  EXPECT_EQ(files(), QStringList("corvane.conf"));
}

/// A process that saves increasing numbers as fast as it can, and reports each once saved.
pid_t startCounter(const QString& path, int from, std::array<int, 2>& told) {
  if (pipe(told.data()) != 0) return -1;
  const pid_t program = startProgram([&] {
    close(told[0]);
    for (int i = from;; ++i) {
      {
        QtPreferences(path).setNumber("count", i);
      }
      if (::write(told[1], &i, sizeof i) != sizeof i) return;
    }
  });
  close(told[1]);
  return program;
}

TEST_F(PreferencesFaults, AProgramThatIsKilledWhileItWritesLosesNoSavedChoice) {
  write(saved);
  constexpr int rounds = 100;
  int counted = 0;
  for (int round = 0; round < rounds; ++round) {
    std::array<int, 2> told{};
    const pid_t counter = startCounter(path, counted + 1, told);
    ASSERT_EQ(::read(told[0], &counted, sizeof counted), static_cast<ssize_t>(sizeof counted));
    // At a different moment of the next save each time.
    usleep(static_cast<useconds_t>(37 * round % 1000));
    kill(counter, SIGKILL);
    statusOf(counter);
    while (::read(told[0], &counted, sizeof counted) > 0) continue;
    close(told[0]);
    ASSERT_NO_FATAL_FAILURE(expectSavedChoices());
    const auto kept = QtPreferences(path).number("count");
    ASSERT_THAT(kept, Optional(testing::AllOf(testing::Ge(counted), testing::Le(counted + 1))));
    counted = static_cast<int>(*kept);
  }
  choose(415.5);
  EXPECT_EQ(files(), QStringList("corvane.conf"));
  figure("times killed while saving", rounds);
}

}  // namespace
}  // namespace corvane
