// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace corvane {

/// Only ends a test that would hang: far longer than needed, even under a sanitizer on a busy
/// machine.
constexpr std::chrono::seconds deadline{60};

/// Whether the condition comes true before the deadline.
template <typename Condition>
bool eventually(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

/// Values that other threads pass to the test.
template <typename T>
class Inbox {
 public:
  void push(T item) {
    // Notify under the lock; otherwise the test could see the item and end while this still runs.
    const std::lock_guard held(lock);
    items.push_back(std::move(item));
    changed.notify_all();
  }

  /// Whether `condition` holds for everything received before the deadline.
  template <typename Condition>
  bool waitUntil(Condition condition) {
    std::unique_lock held(lock);
    return changed.wait_for(held, deadline, [&] { return condition(items); });
  }

  bool waitFor(std::size_t count) {
    return waitUntil([=](const std::vector<T>& all) { return all.size() >= count; });
  }

  std::vector<T> all() const {
    const std::lock_guard held(lock);
    return items;
  }

 private:
  mutable std::mutex lock;
  std::condition_variable changed;
  std::vector<T> items;
};

/// A door that is closed until it is opened, and then stays open.
class Door {
 public:
  void open() { opened.push(true); }

  /// Whether it opened before the deadline.
  bool pass() { return opened.waitFor(1); }

 private:
  Inbox<bool> opened;
};

inline std::string nameIn(const std::filesystem::path& task) {
  std::string name;
  std::getline(std::ifstream(task / "comm"), name);
  return name;
}

/// The name of the calling thread.
inline std::string threadName() {
  return nameIn("/proc/thread-self");
}

/// Whether, before the deadline, no thread of this program has the name.
inline bool noThreadIsLeftNamed(const std::string& name) {
  return eventually([&] {
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
      if (nameIn(task.path()) == name) return false;
    }
    return true;
  });
}

}  // namespace corvane
