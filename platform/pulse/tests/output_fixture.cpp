#include "platform/pulse/tests/output_fixture.h"

#include <pthread.h>

#include <array>

namespace corvane {

AudioOutput::Ended Ends::of(int buffer) {
  return [this, buffer] {
    std::array<char, 16> thread{};
    pthread_getname_np(pthread_self(), thread.data(), thread.size());
    const std::lock_guard held(lock);
    all.push_back({buffer, thread.data()});
  };
}

std::vector<Ends::End> Ends::told() const {
  const std::lock_guard held(lock);
  return all;
}

void PrintTo(const Ends::End& end, std::ostream* out) {
  *out << "the end of " << end.buffer << " on " << end.thread;
}

void OutputTest::addLoudspeakers(std::uint32_t rate, std::uint32_t channels) {
  server.addMicrophone("mic", rate, channels);
  server.pactl({"set-default-sink", loudspeakers});
  support::waitFor("the loudspeakers to be the default", [this] {
    return server.pactl({"get-default-sink"}) == std::string(loudspeakers) + "\n";
  });
}

void OutputTest::startOutput(std::uint32_t rate, std::uint32_t channels) {
  addLoudspeakers(rate, channels);
  ASSERT_EQ(client.ask(), true);
  ASSERT_TRUE(start());
}

bool OutputTest::start() {
  bool started = false;
  client.prompt([&] { started = output->start({44100.0, 1}); });
  return started;
}

bool OutputTest::startsInTime() {
  return client.pumpUntil([this] { return start(); });
}

void OutputTest::press(int buffer, std::vector<float> samples) {
  client.prompt([&] { output->play(std::move(samples), ends.of(buffer)); });
}

bool OutputTest::serverPlays() const {
  return server.pactl({"list", "sink-inputs"}).find("Corvane") != std::string::npos;
}

bool OutputTest::waitForEnds(std::size_t count, std::chrono::seconds limit) {
  return client.pumpUntil([this, count] { return ends.told().size() >= count; }, limit);
}

void OutputTest::expectEnds(int count, std::chrono::seconds limit) {
  EXPECT_TRUE(waitForEnds(static_cast<std::size_t>(count), limit));
  endProgram();
  std::vector<Ends::End> each;
  for (int buffer = 1; buffer <= count; ++buffer) each.push_back({buffer, "corvane.pulse"});
  EXPECT_EQ(ends.told(), each);
}

void OutputTest::endProgram() {
  client.prompt([this] {
    output.reset();
    client.input.reset();
    client.permission.reset();
    client.connection.reset();
  });
}

}  // namespace corvane
