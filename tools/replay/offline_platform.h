// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <memory>
#include <utility>

#include "engine/tuner_engine.h"

namespace corvane::replay {

/// A microphone that delivers the recording.
class FileInput final : public AudioInput {
 public:
  explicit FileInput(const AudioFormat& recorded) : format(recorded) {}

  bool isRunning() const override { return running; }
  void stop() override { running = false; }
  void reset() override {}
  AudioFormat inputFormat() const override { return format; }
  AudioFormat outputFormat() const override { return format; }
  void installTap(std::uint32_t, const AudioFormat&, Tap newTap) override {
    tap = std::move(newTap);
  }
  void start(Started started) override {
    running = true;
    started(true);
  }
  void watch(std::function<void()>) override {}

  void deliver(const AudioBuffer& buffer) { tap(buffer); }

 private:
  AudioFormat format;
  Tap tap;
  bool running = false;
};

/// Plays nothing.
class NoOutput final : public AudioOutput {
 public:
  bool isRunning() const override { return false; }
  bool start(const AudioFormat&) override { return false; }
  void play(std::vector<float>, Ended) override {}
};

class Granted final : public MicrophonePermission {
 public:
  RecordPermission recordPermission() const override { return RecordPermission::granted; }
  void refresh() override {}
  void requestRecordPermission(std::function<void(bool)> completion) override { completion(true); }
};

/// Neither reads nor changes the user's settings.
class NoPreferences final : public Preferences {
 public:
  std::optional<std::string> string(std::string_view) const override { return std::nullopt; }
  std::optional<double> number(std::string_view) const override { return std::nullopt; }
  std::optional<bool> boolean(std::string_view) const override { return std::nullopt; }
  void setString(std::string_view, std::string_view) override {}
  void setNumber(std::string_view, double) override {}
  void setBoolean(std::string_view, bool) override {}
};

class NoUrlOpener final : public UrlOpener {
 public:
  bool openURL(std::string_view) override { return false; }
};

/// Runs its jobs in `pump`, on the only thread.
class PumpedQueue final : public MainQueue {
 public:
  void async(Job job) override { jobs.push_back(std::move(job)); }

  void pump() {
    for (; !jobs.empty(); jobs.pop_front()) jobs.front()();
  }

 private:
  std::deque<Job> jobs;
};

}  // namespace corvane::replay
