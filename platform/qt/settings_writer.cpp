#include "platform/qt/settings_writer.h"

#include <system_error>
#include <utility>

#include "platform/back_off.h"

namespace corvane {
namespace {

using std::chrono::milliseconds;

/// Another program takes a few milliseconds to write, unless its disk is slow; a full disk may stay
/// full for ever.
constexpr milliseconds shortestPause{10};
constexpr milliseconds longestPause{5000};
constexpr milliseconds patienceInTheEnd{1000};

}  // namespace

SettingsWriter::~SettingsWriter() {
  {
    const std::lock_guard held(gate);
    ending = true;
  }
  changed.notify_one();
  if (thread.joinable()) thread.join();
  takeValues({});
  const auto end = std::chrono::steady_clock::now() + patienceInTheEnd;
  while (save() == SettingsFile::Outcome::busy && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(shortestPause);
  }
}

void SettingsWriter::write(const SettingsText::Values& values) {
  {
    const std::lock_guard held(gate);
    handedOver = values;
  }
  changed.notify_one();
  if (!thread.joinable()) start();
}

void SettingsWriter::start() try {
  thread = std::thread([this] { run(); });
} catch (const std::system_error&) {
  // None is to be had now. The next change asks again, and the end saves everything.
}

void SettingsWriter::run() {
  BackOff pauses(shortestPause, longestPause);
  std::optional<milliseconds> pause;
  while (takeValues(pause)) {
    const bool again = save() != SettingsFile::Outcome::done;
    if (!again) pauses.reset();
    pause = again ? std::optional(pauses.next()) : std::nullopt;
  }
}

/// Waits for them, at most for `limit` if there is one; false in the end.
bool SettingsWriter::takeValues(std::optional<milliseconds> limit) {
  std::unique_lock held(gate);
  const auto something = [this] { return ending || !handedOver.empty(); };
  if (limit) {
    changed.wait_for(held, *limit, something);
  } else {
    changed.wait(held, something);
  }
  if (!handedOver.empty()) unsaved = std::exchange(handedOver, {});
  return !ending;
}

SettingsFile::Outcome SettingsWriter::save() {
  if (unsaved.empty()) return SettingsFile::Outcome::done;
  const auto outcome = file.change(unsaved);
  if (outcome == SettingsFile::Outcome::done) unsaved.clear();
  return outcome;
}

}  // namespace corvane
