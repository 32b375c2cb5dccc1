// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "engine/tuner_engine.h"

namespace corvane::fakes {

/// Time that the test advances.
class ManualClock final : public Clock {
 public:
  Time now() const override { return time; }

  Time time = Time{} + std::chrono::hours(1);
};

/// Collects jobs from any thread until the test, as the main thread, runs them.
class ManualMainQueue final : public MainQueue {
 public:
  void async(Job job) override {
    const std::lock_guard held(lock);
    jobs.push_back(std::move(job));
  }

  /// Runs all jobs, including those that they submit. Returns their number.
  std::size_t runAll() {
    std::size_t count = 0;
    while (auto job = take()) {
      job();
      ++count;
    }
    return count;
  }

 private:
  Job take() {
    const std::lock_guard held(lock);
    if (jobs.empty()) return nullptr;
    auto job = std::move(jobs.front());
    jobs.pop_front();
    return job;
  }

  std::mutex lock;
  std::deque<Job> jobs;
};

/// A microphone that delivers what the test pushes into its tap.
class FakeAudioInput final : public AudioInput {
 public:
  bool isRunning() const override { return running; }
  void stop() override {
    running = false;
    pendingStart = nullptr;
    calls.emplace_back("stop");
  }
  void reset() override { calls.emplace_back("reset"); }
  AudioFormat inputFormat() const override { return input; }
  AudioFormat outputFormat() const override { return output; }
  void installTap(std::uint32_t frames, const AudioFormat& format, Tap newTap) override {
    tapFrames = frames;
    tapFormat = format;
    tap = std::move(newTap);
    calls.emplace_back("installTap");
  }
  void start(Started started) override {
    calls.emplace_back("start");
    running = true;
    if (answersLater) {
      pendingStart = std::move(started);
      return;
    }
    running = startSucceeds;
    started(startSucceeds);
  }
  void watch(std::function<void()> watcher) override {
    changed = std::move(watcher);
    if (changed) ++watches;
  }

  AudioFormat input{48000.0, 1};
  AudioFormat output{};
  bool startSucceeds = true;
  bool answersLater = false;

  bool running = false;
  std::uint32_t tapFrames = 0;
  AudioFormat tapFormat{};
  Tap tap;
  Started pendingStart;
  std::function<void()> changed;  ///< null while nobody watches
  int watches = 0;                ///< begun so far
  std::vector<std::string> calls;
};

/// An output that records its buffers; the test ends each buffer.
class FakeAudioOutput final : public AudioOutput {
 public:
  bool isRunning() const override { return running; }
  bool start(const AudioFormat& format) override {
    formats.push_back(format);
    running = startSucceeds;
    return startSucceeds;
  }
  void play(std::vector<float> samples, Ended ended) override {
    played.push_back({std::move(samples), std::move(ended)});
  }

  struct Played {
    std::vector<float> samples;
    Ended ended;
  };

  bool startSucceeds = true;
  bool running = false;
  std::vector<AudioFormat> formats;
  std::vector<Played> played;
};

class FakePermission final : public MicrophonePermission {
 public:
  RecordPermission recordPermission() const override { return permission; }
  void requestRecordPermission(std::function<void(bool)> completion) override {
    requests.push_back(std::move(completion));
  }

  void refresh() override { ++refreshes; }

  RecordPermission permission = RecordPermission::granted;
  int refreshes = 0;
  std::vector<std::function<void(bool)>> requests;
};

/// Stores values of the three types, and the order of writes.
class MemoryPreferences final : public Preferences {
 public:
  std::optional<std::string> string(std::string_view key) const override {
    return read<std::string>(key);
  }
  std::optional<double> number(std::string_view key) const override { return read<double>(key); }
  std::optional<bool> boolean(std::string_view key) const override { return read<bool>(key); }

  void setString(std::string_view key, std::string_view value) override {
    write(key, std::string(value));
  }
  void setNumber(std::string_view key, double value) override { write(key, value); }
  void setBoolean(std::string_view key, bool value) override { write(key, value); }

  using Value = std::variant<std::string, double, bool>;

  std::map<std::string, Value, std::less<>> values;
  std::vector<std::pair<std::string, Value>> writes;

 private:
  template <class T>
  std::optional<T> read(std::string_view key) const {
    const auto found = values.find(key);
    if (found == values.end() || !std::holds_alternative<T>(found->second)) return std::nullopt;
    return std::get<T>(found->second);
  }

  void write(std::string_view key, Value value) {
    writes.emplace_back(key, value);
    values.insert_or_assign(std::string(key), std::move(value));
  }
};

class FakeUrlOpener final : public UrlOpener {
 public:
  bool openURL(std::string_view address) override {
    opened.emplace_back(address);
    return opened.size() > failures;
  }

  std::size_t failures = 0;  ///< calls that fail before one succeeds
  std::vector<std::string> opened;
};

/// A fake platform for an engine.
struct World {
  std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
  std::shared_ptr<ManualMainQueue> mainQueue = std::make_shared<ManualMainQueue>();
  std::shared_ptr<FakeAudioInput> input = std::make_shared<FakeAudioInput>();
  std::shared_ptr<FakeAudioOutput> output = std::make_shared<FakeAudioOutput>();
  std::shared_ptr<FakePermission> permission = std::make_shared<FakePermission>();
  std::shared_ptr<MemoryPreferences> preferences = std::make_shared<MemoryPreferences>();
  std::shared_ptr<FakeUrlOpener> urlOpener = std::make_shared<FakeUrlOpener>();

  Platform platform() const {
    return {clock, mainQueue, input, output, permission, preferences, urlOpener};
  }
};

}  // namespace corvane::fakes
