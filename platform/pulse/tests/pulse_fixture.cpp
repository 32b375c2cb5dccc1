#include "platform/pulse/tests/pulse_fixture.h"

#include <algorithm>
#include <utility>

namespace corvane {

AudioInput::Tap Recording::tap() {
  return [this](const AudioBuffer& buffer) {
    const std::lock_guard held(lock);
    kept.emplace_back(buffer);
  };
}

std::vector<RecordedBuffer> Recording::buffers(std::size_t from) const {
  const std::lock_guard held(lock);
  return {kept.begin() + static_cast<std::ptrdiff_t>(std::min(from, kept.size())), kept.end()};
}

std::size_t Recording::size() const {
  const std::lock_guard held(lock);
  return kept.size();
}

void Recording::clear() {
  const std::lock_guard held(lock);
  kept.clear();
}

std::vector<RecordedBuffer> Recording::take() {
  const std::lock_guard held(lock);
  return std::exchange(kept, {});
}

Client::Client() {
  prompt([this] {
    connection.emplace(mainQueue);
    permission.emplace(*connection);
    input.emplace(*connection, mainQueue);
  });
}

Client::~Client() {
  prompt([this] {
    input.reset();
    permission.reset();
    connection.reset();
  });
  EXPECT_LT(mainQueue.longestJob(), longestWait);
}

void Client::prompt(const std::function<void()>& call) {
  const auto begun = std::chrono::steady_clock::now();
  call();
  EXPECT_LT(std::chrono::steady_clock::now() - begun, longestWait);
}

bool Client::pumpUntil(const std::function<bool()>& condition, std::chrono::seconds limit) {
  return mainQueue.pumpUntil(condition, limit);
}

std::optional<bool> Client::ask(std::chrono::seconds limit) {
  const auto outcome = std::make_shared<std::optional<bool>>();
  prompt([&] { permission->requestRecordPermission([outcome](bool ok) { *outcome = ok; }); });
  EXPECT_FALSE(outcome->has_value()) << "the completion came within the request";
  pumpUntil([outcome] { return outcome->has_value(); }, limit);
  return *outcome;
}

std::optional<bool> Client::listen() {
  if (input->inputFormat() == AudioFormat{}) return std::nullopt;
  const auto outcome = std::make_shared<std::optional<bool>>();
  prompt([&] {
    input->stop();
    input->reset();
    input->installTap(bufferFrames, input->inputFormat(), recording.tap());
    input->start([outcome](bool ok) { *outcome = ok; });
  });
  pumpUntil([outcome] { return outcome->has_value(); });
  return *outcome;
}

void Client::stop() {
  prompt([this] { input->stop(); });
}

bool Client::hear(std::uint32_t room, std::size_t count, std::chrono::seconds limit) {
  const auto isHeard = [this, room, count, from = recording.size()] {
    const auto buffers = recording.buffers(from);
    const auto heard = std::count_if(
        buffers.begin(), buffers.end(),
        [room](const RecordedBuffer& buffer) { return buffer.faultAgainst(room).empty(); });
    return static_cast<std::size_t>(heard) >= count;
  };
  return pumpUntil(isHeard, limit);
}

void PulseTest::play(const std::string& microphone, std::uint32_t room, const AudioFormat& format,
                     double seconds) {
  const auto file = server.home() / (microphone + ".raw");
  coded_signal::write(file, room, static_cast<std::uint32_t>(format.sampleRate),
                      format.channelCount, seconds);
  players.push_back(server.play(microphone, file));
}

void PulseTest::listenToMicrophone(const AudioFormat& format, support::AudioServer::Pace pace,
                                   double seconds) {
  server.addMicrophone("mic", static_cast<std::uint32_t>(format.sampleRate), format.channelCount,
                       pace);
  play("mic", 1, format, seconds);
  ASSERT_EQ(client.ask(), true);
  ASSERT_EQ(client.input->inputFormat(), format);
  ASSERT_EQ(client.listen(), true);
  ASSERT_TRUE(client.hear(1, 1)) << "the microphone is not heard";
}

}  // namespace corvane
