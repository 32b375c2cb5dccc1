// SPDX-License-Identifier: MIT
#include "ui/app/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

namespace corvane {
namespace {

int print(const QString& text) {
  std::fputs(qPrintable(text), stdout);
  return std::fflush(stdout) == 0 ? 0 : 1;
}

int refuse(const QString& reason) {
  std::fprintf(stderr, "corvane: %s (see --help)\n", qPrintable(reason.simplified()));
  return 2;
}

/// Includes Qt's own options, which the application's constructor has not removed yet.
QStringList all(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
  return arguments;
}

int help(const QCommandLineParser& parser, int argc, char** argv) {
  const QCoreApplication app(argc, argv);  // the parser reads the program's name from it
  return print(parser.helpText());
}

}  // namespace

std::optional<int> answerCommandLine(int argc, char** argv) {
  if (argc < 2) return {};
  QCommandLineParser parser;
  parser.setApplicationDescription("A tuner for guitar, bass and piano.");
  parser.addOptions({{"help", "Shows this help."}, {"version", "Shows the version."}});
  if (!parser.parse(all(argc, argv))) return refuse(parser.errorText());
  const QStringList strays = parser.positionalArguments();
  if (!strays.isEmpty()) return refuse("Unexpected argument '" + strays.front() + "'.");
  if (parser.isSet("help")) return help(parser, argc, argv);
  if (parser.isSet("version")) return print("corvane " CORVANE_VERSION "\n");
  return {};
}

}  // namespace corvane
