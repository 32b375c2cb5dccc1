// SPDX-License-Identifier: MIT
// Any file: the replay tool prints complete lines, or one line with the reason.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>

#include "base/require.h"
#include "tools/replay/failure.h"
#include "tools/replay/replay.h"

namespace corvane::fuzz {
namespace {

/// A few bytes of a compressed format can expand to hours of sound; check this much.
constexpr int mostLines = 24;
constexpr auto columns = 10;

/// A file in memory.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size)
      : descriptor(memfd_create("recording", 0)) {
    require(descriptor >= 0, "the file can be created");
    require(write(descriptor, data, size) == static_cast<ssize_t>(size), "the file can be written");
  }
  ~MemoryFile() { close(descriptor); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

 private:
  int descriptor;
};

struct Enough {};

/// Checks each printed line.
class Lines final : public std::streambuf {
 public:
  bool isBetweenLines() const { return line.empty(); }

 protected:
  int_type overflow(int_type character) override {
    if (character != '\n') {
      line += static_cast<char>(character);
      return character;
    }
    require(std::ranges::count(line, '\t') == columns - 1, "the line has all columns");
    line.clear();
    if (++count == mostLines) throw Enough();
    return character;
  }

 private:
  std::string line;
  int count = 0;
};

void replayFile(const std::string& path) {
  Lines lines;
  std::ostream out(&lines);
  out.exceptions(std::ios::badbit);  // rethrow exceptions of Lines
  try {
    replay::Options options;
    options.file = path;
    replay::replay(options, out);
  } catch (const Enough&) {
  } catch (const replay::Failure& failure) {
    const std::string reason = failure.what();
    require(!reason.empty() && reason.find('\n') == std::string::npos, "the reason is one line");
  }
  require(lines.isBetweenLines(), "the last line is complete");
}

}  // namespace
}  // namespace corvane::fuzz

/// Decoders of compressed formats leak on broken files, once per run of the tool.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libsndfile\nleak:libvorbis\nleak:libogg\nleak:libopus\nleak:libFLAC\nleak:"
         "libmpg123\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const corvane::fuzz::MemoryFile file(data, size);
  corvane::fuzz::replayFile(file.path());
  return 0;
}
