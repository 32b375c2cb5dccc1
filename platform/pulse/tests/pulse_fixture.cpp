// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/pulse_fixture.h"

#include <pthread.h>
#include <pulse/operation.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <future>
#include <iostream>
#include <thread>
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

std::vector<RecordedBuffer> Recording::take() {
  const std::lock_guard held(lock);
  return std::exchange(kept, {});
}

AudioOutput::Ended Ends::of(int buffer) {
  return [this, buffer] {
    std::array<char, 16> thread{};
    pthread_getname_np(pthread_self(), thread.data(), thread.size());
    const std::lock_guard held(lock);
    all.push_back(std::to_string(buffer) + " on " + thread.data());
  };
}

std::vector<std::string> Ends::told() const {
  const std::lock_guard held(lock);
  return all;
}

Client::Client() {
  begin();
}

void Client::begin() {
  prompt([this] {
    connection.emplace(mainQueue, clockOfTests());
    permission.emplace(*connection, mainQueue);
    input.emplace(*connection, mainQueue);
    output.emplace(*connection);
  });
}

Client::~Client() {
  end();
  EXPECT_LT(mainQueue.longestJob(), longestJob);
}

void Client::end() {
  prompt([this] {
    output.reset();
    input.reset();
    permission.reset();
    connection.reset();
  });
}

void Client::prompt(const std::function<void()>& call) {
  const auto begun = support::timeOfThisThread();
  call();
  EXPECT_LT(support::timeOfThisThread() - begun, longestJob);
}

void Client::advance(std::chrono::milliseconds duration) {
  waitForTheLoop();  // So that it arms its timers before the clock moves.
  testClock().advance(duration);
  // It calls timers between two jobs.
  for (int job = 0; job < 2; ++job) waitForTheLoop();
  mainQueue.pump();
}

void Client::waitForTheLoop() {
  std::promise<void> done;
  connection->async([&done](PulseSession*) { done.set_value(); });
  done.get_future().wait();
}

std::string Client::defaultSource() {
  std::promise<std::string> told;
  connection->async([&told](PulseSession* session) {
    if (session == nullptr) return told.set_value("");
    pa_operation_unref(pa_context_get_server_info(
        session->readyContext(),
        [](pa_context*, const pa_server_info* server, void* promise) {
          const bool named = server != nullptr && server->default_source_name != nullptr;
          static_cast<std::promise<std::string>*>(promise)->set_value(
              named ? server->default_source_name : "");
        },
        &told));
  });
  return told.get_future().get();
}

void Client::reconnect() {
  connection->async([](PulseSession* session) {
    if (session != nullptr) pa_context_disconnect(session->readyContext());
  });
  EXPECT_TRUE(
      pumpUntil([this] { return connection->state() != PulseConnection::State::connected; }));
  EXPECT_EQ(ask(), true);
}

bool Client::pumpUntil(const std::function<bool()>& condition) {
  return mainQueue.pumpUntil(condition);
}

std::optional<bool> Client::ask() {
  const auto outcome = std::make_shared<std::optional<bool>>();
  prompt([&] { permission->requestRecordPermission([outcome](bool ok) { *outcome = ok; }); });
  EXPECT_FALSE(outcome->has_value()) << "the completion was called within the request";
  pumpUntil([outcome] { return outcome->has_value(); });
  return *outcome;
}

void Client::start(std::optional<bool>& outcome, const AudioFormat& format) {
  prompt([&] {
    input->stop();
    input->reset();
    input->installTap(bufferFrames, format, recording.tap());
    input->start([&outcome](bool ok) { outcome = ok; });
  });
}

std::optional<bool> Client::listen() {
  std::optional<bool> outcome;
  if (input->inputFormat() == AudioFormat{}) return outcome;
  start(outcome);
  if (!pumpUntil([&outcome] { return outcome.has_value(); })) stop();
  return outcome;
}

void Client::stop() {
  prompt([this] { input->stop(); });
}

bool Client::hear(std::uint32_t room, std::size_t count) {
  const auto isHeard = [this, room, count, from = recording.size()] {
    const auto buffers = recording.buffers(from);
    const auto heard = std::count_if(
        buffers.begin(), buffers.end(),
        [room](const RecordedBuffer& buffer) { return buffer.faultAgainst(room).empty(); });
    return static_cast<std::size_t>(heard) >= count;
  };
  return pumpUntil(isHeard);
}

bool Client::finds(const AudioFormat& format) {
  // PipeWire does not always report a new default; the program asks again after a delay.
  testClock().run();
  const bool found = pumpUntil([&] { return input->inputFormat() == format; });
  testClock().stop();
  return found;
}

bool Client::startOutput() {
  bool started = false;
  prompt([&] { started = output->start({44100.0, 1}); });
  return started;
}

void Client::press(int buffer, std::vector<float> samples) {
  prompt([&] { output->play(std::move(samples), ends.of(buffer)); });
}

bool Client::waitForEnds(int count) {
  return pumpUntil([&] { return ends.told().size() >= static_cast<std::size_t>(count); });
}

void Client::expectEnds(int count) {
  EXPECT_TRUE(waitForEnds(count));
  end();
  std::vector<std::string> each;
  for (int i = 1; i <= count; ++i) each.push_back(std::to_string(i) + " on corvane.pulse");
  EXPECT_EQ(ends.told(), each);
}

void PulseTest::setDefaultSource(const std::string& name) {
  server.setDefaultSource(name);
  if (!onPipeWire()) return;
  for (int attempt = 0; attempt < 10; ++attempt) {
    if (client.connection->state() != PulseConnection::State::connected) return;
    for (int look = 0; look < 200; ++look) {
      if (client.defaultSource() == name) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::cout << "PipeWire does not report to this client the default " << name << "\n";
    client.reconnect();
  }
  FAIL() << "no connection reports the default " << name;
}

void PulseTest::addMicrophone(const std::string& name, const AudioFormat& format) {
  server.addMicrophone(name, static_cast<std::uint32_t>(format.sampleRate), format.channelCount);
  setDefaultSource(name);
}

void PulseTest::play(const std::string& microphone, std::uint32_t room, const AudioFormat& format) {
  const auto file = server.home() / (microphone + ".raw");
  const auto rate = static_cast<std::uint32_t>(format.sampleRate);
  coded_signal::write(file, room, rate, format.channelCount, seconds);
  players.push_back(server.play(microphone, file, rate, format.channelCount));
}

void PulseTest::addSoundingMicrophone(const std::string& name, std::uint32_t room,
                                      const AudioFormat& format) {
  addMicrophone(name, format);
  play(name, room, format);
}

void PulseTest::listenToMicrophone(const AudioFormat& format) {
  addSoundingMicrophone("mic", 1, format);
  ASSERT_EQ(client.ask(), true);
  ASSERT_EQ(client.input->inputFormat(), format);
  ASSERT_EQ(client.listen(), true);
  ASSERT_TRUE(client.hear(1, 1)) << "the microphone is not heard";
}

void PulseTest::addLoudspeakers(const AudioFormat& format) {
  addMicrophone("mic", format);
  server.pactl({"set-default-sink", loudspeakers});
  support::waitFor("the loudspeakers to be the default", [this] {
    return server.pactl({"get-default-sink"}) == std::string(loudspeakers) + "\n";
  });
}

void PulseTest::startOutput(const AudioFormat& format) {
  addLoudspeakers(format);
  ASSERT_EQ(client.ask(), true);
  ASSERT_TRUE(client.startOutput());
}

void PulseTest::pressUntilTheServerPlays(int buffer) {
  client.press(buffer, std::vector<float>(20 * 44100, 0.1F));
  ASSERT_TRUE(client.pumpUntil([this] { return streams("sink-inputs") == 1; }));
}

std::ptrdiff_t PulseTest::streams(const char* kind) {
  const std::string list = server.pactl({"list", kind});
  const std::string ours = "application.name = \"Corvane\"";
  std::ptrdiff_t count = 0;
  for (auto at = list.find(ours); at != std::string::npos; at = list.find(ours, at + 1)) ++count;
  return count;
}

bool PulseTest::forgets(const char* kind) {
  return client.pumpUntil([&] { return streams(kind) == 0; });
}

double PulseTest::latencyOf(const char* devices, const std::string& device, const char* kind) {
  const auto numberAfter = [](const std::string& text, std::size_t from, const std::string& name) {
    const std::size_t at = text.find(name, from);
    return at == std::string::npos ? std::nan("") : std::stod(text.substr(at + name.size()));
  };
  if (onPipeWire()) {
    const std::string list = server.pactl({"list", kind});
    const std::size_t latency = list.find("node.latency", list.find("\"Corvane\""));
    return numberAfter(list, latency, "\"") / numberAfter(list, latency, "/");
  }
  const std::string list = server.pactl({"list", devices});
  return numberAfter(list, list.find("Name: " + device + "\n"), "configured ") / 1e6;
}

void PulseTest::expectNoFault(const std::function<std::string()>& faultOf) {
  std::string fault;
  for (int attempt = 1; attempt <= 10; ++attempt) {
    fault = faultOf();
    const bool lost = server.mayHaveLostSound();
    if (HasFatalFailure() || fault.empty()) return;
    std::cout << "attempt " << attempt << ": " << fault << "\n";
    if (!lost) break;
  }
  ADD_FAILURE() << fault;
}

}  // namespace corvane
