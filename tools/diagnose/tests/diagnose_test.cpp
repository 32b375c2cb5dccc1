// SPDX-License-Identifier: MIT
// The command as users run it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>
#include <vector>

#include "tests/support/audio_server.h"

namespace corvane::diagnose {
namespace {

namespace fs = std::filesystem;
using support::AudioServer;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

std::string bytes(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

/// Runs the command; `folder` holds its output meanwhile.
Outcome diagnose(const fs::path& folder, const std::string& arguments = "") {
  const fs::path out = folder / "out";
  const fs::path err = folder / "err";
  const int result =
      std::system((DIAGNOSE " >" + out.string() + " 2>" + err.string() + ' ' + arguments).c_str());
  const Outcome outcome{WIFEXITED(result) ? WEXITSTATUS(result) : -1, bytes(out), bytes(err)};
  fs::remove(out);
  fs::remove(err);
  return outcome;
}

std::vector<fs::path> filesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    // libpulse writes this one for every client.
    if (entry.is_regular_file() && entry.path().filename() != "cookie") {
      files.push_back(entry.path());
    }
  }
  std::ranges::sort(files);
  return files;
}

/// The whole report, as a regular expression.
std::string lines(const std::string& server, const std::string& input,
                  const std::string& permission, const std::string& settings,
                  const std::string& sound) {
  const std::string number = "[0-9]+";
  return "corvane         " CORVANE_VERSION
         "\nQt              6[.0-9]+, built with 6[.0-9]+\n"
         "system          [^\n]+, linux [^\n]+, [a-z0-9_]+\nsession         [^\n]+, [^\n]+\n"
         "audio server    " +
         server + "\ndefault input   " + input + "\npermission      " + permission +
         "\nsettings        " + settings + "\ndetector        [A-Za-z0-9-]+\nsound           " +
         sound + "\n";
}

class DiagnoseWithoutServer : public testing::Test {
 protected:
  support::PrivateHome home;
};

TEST_F(DiagnoseWithoutServer, AnswersOptionsAndRejectsOthers) {
  EXPECT_EQ(diagnose(home.path(), "--version").out, "corvane-diagnose " CORVANE_VERSION "\n");
  EXPECT_THAT(diagnose(home.path(), "--help").out, HasSubstr("Usage: corvane-diagnose"));
  EXPECT_EQ(diagnose(home.path(), "--help >/dev/full").status, 1);
  for (const char* const arguments : {"--verbose", "-h", "note.wav", "''", "--help --version"}) {
    const Outcome refused = diagnose(home.path(), arguments);
    EXPECT_EQ(refused.status, 2) << arguments;
    EXPECT_THAT(refused.out, IsEmpty());
    EXPECT_EQ(refused.err, "corvane-diagnose: unexpected argument (see --help)\n");
  }
}

TEST_F(DiagnoseWithoutServer, ReportsMissingServer) {
  const Outcome done = diagnose(home.path());
  EXPECT_EQ(done.status, 0);
  EXPECT_THAT(done.out, MatchesRegex(lines("none: Connection refused", "none", "undetermined",
                                           "guitar, g6-standard, A4 = 440 Hz, right-handed",
                                           "No microphone is available.")));
}

// One setting is invalid and one unknown; the tuner would rewrite the file.
TEST_F(DiagnoseWithoutServer, ReportsSettingsAndKeepsTheFile) {
  const fs::path file = home.path() / ".config/corvane/corvane.conf";
  const std::string text =
      "# mine\n[General]\ntuner.a4=442.5\ntuner.instrument=bass\ntuner.left=true\n"
      "tuner.tuning=none\nother=1\n";
  fs::create_directories(file.parent_path());
  std::ofstream(file) << text;
  const auto written = fs::last_write_time(file);
  const auto files = filesBelow(home.path());
  EXPECT_THAT(diagnose(home.path()).out,
              ContainsRegex("settings        bass, b4-standard, A4 = 442.5 Hz, left-handed\n"));
  EXPECT_EQ(bytes(file), text);
  EXPECT_EQ(fs::last_write_time(file), written);
  EXPECT_EQ(filesBelow(home.path()), files);
}

class DiagnoseWithServer : public testing::TestWithParam<AudioServer::Kind> {
 protected:
  /// A minute of a string's fundamental, 6 dB below full scale.
  fs::path tone() const {
    std::vector<float> samples;
    for (int i = 0; i < 60 * 48000; ++i) {
      samples.push_back(static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * 110 * i / 48000)));
    }
    const fs::path file = server.home() / "tone";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(samples.data()),
               static_cast<std::streamsize>(samples.size() * sizeof(float)));
    return file;
  }

  void expectReport(const std::string& input, const std::string& sound) const {
    const Outcome done = diagnose(server.home());
    EXPECT_EQ(done.status, 0);
    EXPECT_THAT(done.out,
                MatchesRegex(lines("[^\n]*[Pp]ulse[^\n]* [0-9][^\n]*", input, "granted",
                                   "guitar, g6-standard, A4 = 440 Hz, right-handed", sound)));
  }

  AudioServer server{GetParam()};
};

// The pattern leaves no room for a note or a frequency.
TEST_P(DiagnoseWithServer, ReportsInputBlocksAndLevel) {
  server.addMicrophone("mic", 48000, 1);
  const auto player = server.play("mic", tone(), 48000, 1);
  expectReport("mic, [a-z0-9]+ 1ch 48000Hz, volume [^\n]+",
               "[1-9][0-9]* blocks in 5 s, [1-9][0-9]* with a pitch, level -[0-9]+ to -9 dBFS");
}

TEST_P(DiagnoseWithServer, ReportsMissingMicrophone) {
  server.addSpeakers("speakers", 48000, 2);
  expectReport("(none|[^\n]+, a monitor)", "No microphone is available[.]");
}

TEST_P(DiagnoseWithServer, EndsWhenServerHangs) {
  server.suspend();
  const Outcome done = diagnose(server.home());
  server.resume();
  EXPECT_EQ(done.status, 0);
  EXPECT_THAT(done.out, ContainsRegex("audio server    none: no answer\n"));
}

INSTANTIATE_TEST_SUITE_P(, DiagnoseWithServer,
                         testing::Values(AudioServer::Kind::pulseAudio,
                                         AudioServer::Kind::pipeWire),
                         [](const auto& kind) { return support::nameOf(kind.param); });

}  // namespace
}  // namespace corvane::diagnose
