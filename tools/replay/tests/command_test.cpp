// SPDX-License-Identifier: MIT
// The command line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>

#include "tools/replay/tests/recordings.h"

namespace corvane::replay {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class Command : public testing::Test {
 protected:
  /// Runs the command and stores its result.
  void run(const std::string& arguments) {
    const std::string command = REPLAY_COMMAND " " + arguments + " >" + recordings.path("out") +
                                " 2>" + recordings.path("err");
    const int result = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(result));
    status = WEXITSTATUS(result);
    out = Recordings::bytes(recordings.path("out"));
    err = Recordings::bytes(recordings.path("err"));
  }

  void expectOneLine(const std::string& text) {
    EXPECT_EQ(status, 1);
    EXPECT_THAT(out, IsEmpty());
    EXPECT_THAT(err, HasSubstr(text));
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1);
  }

  Recordings recordings;
  int status = -1;
  std::string out;
  std::string err;
};

TEST_F(Command, PrintsALinePerBlock) {
  run(recordings.write("a.wav", 44100, {signals::sine(110, 44100, 16384)}));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 4);
  EXPECT_THAT(err, IsEmpty());
}

TEST_F(Command, UnusableFileGivesOneLine) {
  struct Unusable {
    std::string file;
    const char* reason;
  };
  for (const auto& [file, reason] :
       {Unusable{recordings.path("none.wav"), "No such file or directory"},
        Unusable{recordings.path(""), "is a directory"},
        Unusable{recordings.path(std::string(5000, 'x')), "File name too long"},
        Unusable{recordings.writeBytes("empty.wav", ""), "is empty"},
        Unusable{recordings.write("silent.wav", 44100, {signals::Samples{}}), "has no samples"},
        Unusable{recordings.writeBytes("letter.wav", "This is a letter to a friend."),
                 "is not a sound file"}}) {
    SCOPED_TRACE(reason);
    run(file);
    expectOneLine(reason);
  }
}

TEST_F(Command, PipeWithoutAWriterGivesOneLine) {
  ASSERT_EQ(mkfifo(recordings.path("pipe").c_str(), 0600), 0);
  run(recordings.path("pipe"));
  expectOneLine("pipe: is a pipe or a device");
}

TEST_F(Command, TruncatedFileGivesOneLine) {
  for (const int format : {SF_FORMAT_WAV, SF_FORMAT_RF64}) {
    const auto whole = Recordings::bytes(recordings.write(
        "a.wav", 44100, {signals::sine(110, 44100, 20000)}, format | SF_FORMAT_FLOAT));
    run(recordings.path("a.wav"));
    EXPECT_EQ(status, 0);
    for (const std::size_t size :
         {std::size_t{3}, std::size_t{11}, std::size_t{30}, std::size_t{20000}, whole.size() - 1}) {
      run(recordings.writeBytes("b.wav", whole.substr(0, size)));
      SCOPED_TRACE(std::to_string(size) + " bytes of format " + std::to_string(format));
      expectOneLine("b.wav: ");
    }
  }
}

TEST_F(Command, TruncatedFlacFileGivesOneLine) {
  const auto whole = Recordings::bytes(recordings.write("a.flac", 44100, {signals::noise(60000, 3)},
                                                        SF_FORMAT_FLAC | SF_FORMAT_PCM_16));
  run(recordings.writeBytes("b.flac", whole.substr(0, whole.size() / 2)));
  EXPECT_EQ(status, 1);
  EXPECT_THAT(err, HasSubstr("is truncated"));
}

TEST_F(Command, StatusDistinguishesInvalidOptionHelpAndFullDisk) {
  run("--tempo 3");
  EXPECT_EQ(status, 2);
  EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1);
  run("--help");
  EXPECT_EQ(status, 0);
  EXPECT_THAT(out, HasSubstr("--string"));
  const auto file = recordings.write("a.wav", 44100, {signals::sine(110, 44100, 16384)});
  const int result = std::system((REPLAY_COMMAND " " + file + " >/dev/full 2>/dev/null").c_str());
  EXPECT_EQ(WEXITSTATUS(result), 1);
}

}  // namespace
}  // namespace corvane::replay
