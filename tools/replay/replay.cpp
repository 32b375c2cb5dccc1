// SPDX-License-Identifier: MIT
#include "tools/replay/replay.h"

#include <charconv>
#include <string>

#include "tools/replay/offline_platform.h"
#include "tools/replay/recording.h"

namespace corvane::replay {
namespace {

constexpr std::uint32_t bufferFrames = 4096;

/// The shortest text that parses as the same number.
template <class Number>
std::string shortest(Number value) {
  std::array<char, 32> text;
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end};
}

std::string orDash(const std::string& text) {
  return text.empty() ? "-" : text;
}

std::string position(const std::optional<std::int64_t>& index) {
  return index ? std::to_string(*index) : "-";
}

class Replay {
 public:
  Replay(const Options& options, std::ostream& lines) : recording(options.file), out(lines) {
    engine->setInstrument(options.instrument);
    if (options.tuning) engine->setTuningID(*options.tuning);
    engine->setA4(options.a4);
    engine->setLockedStringIndex(options.string);
    engine->start();
  }

  void run() {
    out << "sample\tfrequency\tconfidence\trms\theard\tnote\toctave\tcents\tstring\tstatus\n";
    for (;;) {
      const auto channels = recording.read(bufferFrames);
      if (channels.front().empty()) return;
      deliver(channels);
    }
  }

 private:
  void deliver(const std::vector<std::vector<float>>& channels) {
    std::vector<const float*> pointers;
    for (const auto& channel : channels) pointers.push_back(channel.data());
    input->deliver({pointers.data(), static_cast<std::uint32_t>(channels.front().size()),
                    static_cast<std::uint32_t>(channels.size()), recording.format().sampleRate});
    mainQueue->pump();
    if (!analysed) return;
    analysed = false;
    printLine();
    firstSample += PitchCapture::hopSamples;
  }

  void printLine() {
    out << firstSample << '\t' << detectorColumns() << '\t'
        << (engine->state().heard ? "yes" : "no") << '\t' << engine->state().noteLabel << '\t'
        << orDash(engine->state().octaveLabel) << '\t' << shortest(engine->state().cents) << '\t'
        << position(engine->state().highlightedString) << '\t' << engine->state().status << '\n';
  }

  std::string detectorColumns() const {
    if (!reading) return "-\t-\t-";
    return shortest(reading->frequency) + '\t' + shortest(reading->confidence) + '\t' +
           shortest(reading->rms);
  }

  /// Records each reading. A buffer of one hop completes at most one block.
  std::shared_ptr<PitchCapture> makeCapture() {
    return PitchCapture::create(std::make_unique<InlineQueue>(), [this](auto block, double rate) {
      analysed = true;
      reading = PitchCapture::detectMusicalPitch(block, rate);
      return reading;
    });
  }

  Recording recording;
  std::ostream& out;
  std::size_t firstSample = 0;
  bool analysed = false;
  std::optional<PitchDetector::Reading> reading;
  std::shared_ptr<FileInput> input = std::make_shared<FileInput>(recording.format());
  std::shared_ptr<PumpedQueue> mainQueue = std::make_shared<PumpedQueue>();
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create({std::make_shared<SteadyClock>(), mainQueue, input,
                           std::make_shared<NoOutput>(), std::make_shared<Granted>(),
                           std::make_shared<NoPreferences>(), std::make_shared<NoUrlOpener>()},
                          makeCapture());
};

}  // namespace

void replay(const Options& options, std::ostream& out) {
  Replay(options, out).run();
}

}  // namespace corvane::replay
