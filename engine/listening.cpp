// SPDX-License-Identifier: MIT
#include <string_view>
#include <utility>

#include "engine/apply_sink.h"
#include "engine/tuner_engine.h"

namespace corvane {
namespace {

constexpr auto deniedText =
    "Microphone access is off. Allow Corvane under Settings, Privacy, Microphone.";
constexpr auto askText = "Tap Allow Microphone so Corvane can hear the note.";
constexpr auto noMicrophoneText = "No microphone is available.";
constexpr auto notStartedText = "The microphone could not start.";

constexpr std::uint32_t tapFrames = 4096;
/// One second, after which the level is near zero.
constexpr int readingsOfSilence = 12;

/// Tried in this order. The platform maps each to the desktop's own settings.
constexpr std::string_view micSettingsAddresses[] = {
    "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_Microphone",
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Microphone",
};

bool hasSound(const AudioFormat& format) {
  return format.sampleRate > 0.0 && format.channelCount > 0;
}

AudioFormat tapFormat(const AudioInput& input) {
  const AudioFormat own = input.inputFormat();
  const bool unknown = own.sampleRate == 0.0 || own.channelCount == 0;
  return unknown ? input.outputFormat() : own;
}

}  // namespace

void TunerEngine::start() {
  const Call call(*this);
  listen();
  if (std::exchange(wanted, true)) return;
  platform.audioInput->watch([weak = weak_from_this()] {
    if (const auto engine = weak.lock()) engine->microphoneChanged();
  });
}

void TunerEngine::listen() {
  listenIfAllowed();
  if (current.heard && !current.listening) hearSilence();
}

void TunerEngine::microphoneChanged() {
  const Call call(*this);
  if (current.listening) stopListening();
  listen();
}

/// Lets the note from before the last stop fade: readings may be long in coming, or never come.
void TunerEngine::hearSilence() {
  const ApplySink sink(weak_from_this(), platform.mainQueue);
  for (int i = 0; i < readingsOfSilence; ++i) sink.deliver(std::nullopt);
}

void TunerEngine::listenIfAllowed() {
  switch (platform.microphonePermission->recordPermission()) {
    case RecordPermission::denied:
      requestingMic = false;
      showMicrophoneDenied();
      platform.microphonePermission->refresh();
      return;
    case RecordPermission::undetermined:
      requestMicrophone();
      return;
    case RecordPermission::granted:
      requestingMic = false;
      current.micAllowed = true;
      current.errorText = std::nullopt;
      if (!platform.audioInput->isRunning()) startEngine();
      return;
    case RecordPermission::unknown:
      current.errorText = askText;
      return;
  }
}

void TunerEngine::requestMicrophone() {
  if (requestingMic) return;
  requestingMic = true;
  current.errorText = std::nullopt;
  platform.microphonePermission->requestRecordPermission(
      [weak = weak_from_this(), queue = platform.mainQueue](bool granted) {
        queue->async([weak, granted] {
          if (const auto engine = weak.lock()) engine->microphoneAnswered(granted);
        });
      });
}

void TunerEngine::microphoneAnswered(bool granted) {
  const Call call(*this);
  requestingMic = false;
  // Read again: the user may have answered in the system's settings meanwhile.
  const RecordPermission permission = platform.microphonePermission->recordPermission();
  if (granted || permission == RecordPermission::granted) {
    current.micAllowed = true;
    current.errorText = std::nullopt;
    if (wanted) startEngine();  // Not after `stop`.
  } else if (permission == RecordPermission::denied) {
    showMicrophoneDenied();
  } else {
    current.errorText = askText;
  }
}

/// Stops the input, which would otherwise resume by itself once allowed, unseen.
void TunerEngine::showMicrophoneDenied() {
  if (platform.audioInput->isRunning()) platform.audioInput->stop();
  current.micAllowed = false;
  current.listening = false;
  current.errorText = deniedText;
}

void TunerEngine::startEngine() {
  AudioInput& input = *platform.audioInput;
  input.stop();
  input.reset();
  capture->reset();
  toneFormat = std::nullopt;

  const AudioFormat format = tapFormat(input);
  if (!hasSound(format)) {
    current.errorText = noMicrophoneText;
    current.listening = false;
    return;
  }
  toneFormat = AudioFormat{format.sampleRate, 1};
  applySink = std::make_shared<ApplySink>(weak_from_this(), platform.mainQueue);
  input.installTap(tapFrames, format,
                   [pipeline = capture, deliver = [sink = applySink](const auto& reading) {
                     sink->deliver(reading);
                   }](const AudioBuffer& buffer) {
                     if (buffer.afterGap) pipeline->reset();
                     pipeline->consume(buffer, deliver);
                   });
  input.start([weak = weak_from_this()](bool success) {
    if (const auto engine = weak.lock()) engine->captureStarted(success);
  });
}

void TunerEngine::captureStarted(bool success) {
  const Call call(*this);
  if (success) {
    current.listening = true;
    current.errorText = std::nullopt;
  } else if (platform.microphonePermission->recordPermission() == RecordPermission::denied) {
    showMicrophoneDenied();  // Some servers report a denial only now.
  } else {
    current.errorText = notStartedText;
    current.listening = false;
  }
}

void TunerEngine::stop() {
  const Call call(*this);
  wanted = false;
  platform.audioInput->watch(nullptr);
  stopListening();
}

void TunerEngine::stopListening() {
  platform.audioInput->stop();
  platform.audioInput->reset();
  current.listening = false;
  current.playingReference = false;
  capture->reset();
}

void TunerEngine::allowMicrophone() {
  requestingMic = false;
  if (platform.microphonePermission->recordPermission() != RecordPermission::denied) return start();
  platform.microphonePermission->refresh();
  openMicSettings();
}

void TunerEngine::openMicSettings() {
  for (const std::string_view address : micSettingsAddresses) {
    if (platform.urlOpener->openURL(address)) return;
  }
}

}  // namespace corvane
