// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <iostream>
#include <string_view>

#include "tools/diagnose/report.h"

namespace {

constexpr auto usage =
    "Usage: corvane-diagnose [--help | --version]\n"
    "Prints what a problem report needs: versions, system, audio server, input, permission\n"
    "and settings. Then listens for five seconds and prints the level and how many blocks had\n"
    "a pitch, but not which. Records nothing and changes no settings.\n"
    "  --help     Shows this help.\n"
    "  --version  Shows the version.\n";

int fail(const char* reason, int status) {
  std::cerr << "corvane-diagnose: " << reason << '\n';
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view argument = argc == 2 ? argv[1] : "";
  if (argument == "--help") {
    std::cout << usage;
  } else if (argument == "--version") {
    std::cout << "corvane-diagnose " CORVANE_VERSION "\n";
  } else if (argc != 1) {
    return fail("unexpected argument (see --help)", 2);
  } else {
    const QCoreApplication app(argc, argv);
    corvane::diagnose::report(std::cout);
  }
  std::cout.flush();
  return std::cout ? 0 : fail("the output could not be written", 1);
}
