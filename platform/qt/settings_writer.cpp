// SPDX-License-Identifier: MIT
#include "platform/qt/settings_writer.h"

#include <chrono>
#include <system_error>
#include <utility>

#include "platform/back_off.h"

namespace corvane {
namespace {

using std::chrono::milliseconds;
using Outcome = SettingsFile::Outcome;

/// Another program writes for a few milliseconds, longer on a slow disk; a full disk may stay full.
constexpr milliseconds shortestPause{10};
constexpr milliseconds longestPause{5000};
constexpr milliseconds lastSaveTimeout{1000};

}  // namespace

SettingsWriter::~SettingsWriter() {
  std::unique_lock held(gate);
  ending = true;
  changed.notify_one();
  held.unlock();
  if (thread.joinable()) thread.join();
  held.lock();
  const auto end = std::chrono::steady_clock::now() + lastSaveTimeout;
  while (save(held) == Outcome::busy && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(shortestPause);
  }
}

void SettingsWriter::write(SettingsText::Values values) {
  {
    const std::lock_guard held(gate);
    unsaved = std::move(values);
    isNew = true;
  }
  changed.notify_one();
  if (thread.joinable()) return;
  try {
    thread = std::thread([this] { run(); });
  } catch (const std::system_error&) {
    // Thread creation failed; retry on the next change. The end saves everything.
  }
}

void SettingsWriter::run() {
  BackOff pauses(shortestPause, longestPause);
  std::unique_lock held(gate);
  const auto woken = [this] { return ending || isNew; };
  while (true) {
    if (unsaved.empty() || isNew) {
      changed.wait(held, woken);
    } else {
      changed.wait_for(held, pauses.next(), woken);
    }
    if (ending) return;
    if (save(held) == Outcome::done) pauses.reset();
  }
}

/// Releases the lock while it writes. Values that arrive meanwhile replace those that failed.
Outcome SettingsWriter::save(std::unique_lock<std::mutex>& held) {
  isNew = false;
  if (unsaved.empty()) return Outcome::done;
  auto values = std::exchange(unsaved, {});
  held.unlock();
  const auto outcome = file.change(values);
  held.lock();
  if (outcome != Outcome::done && !isNew) unsaved = std::move(values);
  return outcome;
}

}  // namespace corvane
