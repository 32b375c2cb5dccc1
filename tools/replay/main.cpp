// SPDX-License-Identifier: MIT
#include <cstdio>
#include <iostream>

#include "tools/replay/failure.h"
#include "tools/replay/options.h"
#include "tools/replay/replay.h"

namespace {

int fail(const char* reason, int status) {
  std::cout.flush();
  std::fprintf(stderr, "corvane-replay: %s\n", reason);
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace corvane::replay;
  try {
    const Options options = parseOptions({argv + 1, static_cast<std::size_t>(argc - 1)});
    if (options.help) {
      std::cout << usage;
    } else {
      replay(options, std::cout);
    }
    std::cout.flush();
    return std::cout ? 0 : fail("the output could not be written", 1);
  } catch (const UsageError& error) {
    return fail((std::string(error.what()) + " (see --help)").c_str(), 2);
  } catch (const Failure& error) {
    return fail(error.what(), 1);
  }
}
