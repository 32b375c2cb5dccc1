// SPDX-License-Identifier: MIT
#include "tools/replay/options.h"

#include <charconv>
#include <string_view>

#include "tools/replay/failure.h"
#include "tunings/tuning_library.h"

namespace corvane::replay {
namespace {

template <class Number>
Number parseNumber(std::string_view option, std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) {
    throw UsageError(std::string(option) + " takes a number, not '" + std::string(text) + "'");
  }
  return number;
}

double parseA4(std::string_view text) {
  const auto hertz = parseNumber<double>("--a4", text);
  if (!(377.0 <= hertz && hertz <= 560.0)) throw UsageError("--a4 takes 377 to 560 Hz");
  return hertz;
}

Instrument parseInstrument(std::string_view text) {
  if (const auto instrument = instrumentFromRawValue(text)) return *instrument;
  throw UsageError("--instrument takes guitar, bass or piano, not '" + std::string(text) + "'");
}

void set(Options& options, std::string_view name, std::string_view value) {
  if (name == "--instrument") {
    options.instrument = parseInstrument(value);
  } else if (name == "--tuning") {
    options.tuning = value;
  } else if (name == "--a4") {
    options.a4 = parseA4(value);
  } else if (name == "--string") {
    options.string = parseNumber<std::int64_t>(name, value);
  } else {
    throw UsageError("unknown option '" + std::string(name) + "'");
  }
}

/// The valid tunings and strings depend on the instrument.
void checkTogether(const Options& options) {
  const std::string id = options.tuning.value_or("");
  const Tuning* found = TuningLibrary::find(options.instrument, id);
  if (options.tuning && found == nullptr) {
    throw UsageError("the " + std::string(rawValue(options.instrument)) + " has no tuning '" + id +
                     "'");
  }
  const auto count = TuningLibrary::resolve(options.instrument, id).strings.size();
  if (!options.string) return;
  if (*options.string < 0 || static_cast<std::size_t>(*options.string) >= count) {
    throw UsageError("--string is out of range: this tuning has " + std::to_string(count) +
                     " strings, counted from 0");
  }
}

}  // namespace

const char* const usage =
    "Usage: corvane-replay FILE.wav [--instrument guitar|bass|piano] [--tuning ID] [--a4 HZ]\n"
    "                               [--string INDEX]\n"
    "Runs a recording through the tuner and prints one tab-separated line for every analysed\n"
    "block of 8192 samples: the index of its first sample, the detector's result (- without a\n"
    "pitch), and what the tuner shows.\n";

Options parseOptions(std::span<const char* const> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--help") {
      options.help = true;
      return options;
    }
    if (argument.starts_with("--")) {
      if (i + 1 == arguments.size()) throw UsageError(std::string(argument) + " needs a value");
      set(options, argument, arguments[++i]);
    } else if (options.file.empty()) {
      options.file = argument;
    } else {
      throw UsageError("more than one recording");
    }
  }
  if (options.file.empty()) throw UsageError("no recording given");
  checkTogether(options);
  return options;
}

}  // namespace corvane::replay
