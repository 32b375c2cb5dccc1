// Any file: the replay tool prints its lines, each whole, or says in one line why it cannot.

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

/// A few bytes of a packed format can stand for hours of sound; this much is looked at.
constexpr int mostLines = 24;
constexpr auto columns = 10;

/// A file that lies in memory alone.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size)
      : descriptor(memfd_create("recording", 0)) {
    require(descriptor >= 0, "there is memory for a file");
    require(write(descriptor, data, size) == static_cast<ssize_t>(size), "a file takes its bytes");
  }
  ~MemoryFile() { close(descriptor); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

 private:
  int descriptor;
};

struct Enough {};

/// Looks at each line that is printed.
class Lines final : public std::streambuf {
 public:
  bool isBetweenLines() const { return line.empty(); }

 protected:
  int_type overflow(int_type character) override {
    if (character != '\n') {
      line += static_cast<char>(character);
      return character;
    }
    require(std::ranges::count(line, '\t') == columns - 1, "a line has all columns");
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
  out.exceptions(std::ios::badbit);  // what the lines throw passes through
  try {
    replay::Options options;
    options.file = path;
    replay::replay(options, out);
  } catch (const Enough&) {
  } catch (const replay::Failure& failure) {
    const std::string reason = failure.what();
    require(!reason.empty() && reason.find('\n') == std::string::npos, "a reason is one line");
  }
  require(lines.isBetweenLines(), "no line is left unfinished");
}

}  // namespace
}  // namespace corvane::fuzz

/// The libraries that read the packed formats leak where such a file is broken, once in the life of
/// the tool, which reads one file.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libsndfile\nleak:libvorbis\nleak:libogg\nleak:libopus\nleak:libFLAC\nleak:"
         "libmpg123\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const corvane::fuzz::MemoryFile file(data, size);
  corvane::fuzz::replayFile(file.path());
  return 0;
}
