// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>
#include <optional>

namespace corvane {

/// Decides what a screen reader announces, and when, from eleven readings a second: each change
/// once it has settled; while a string is being tuned, only moves that are large enough; a note
/// that stays in tune once. The caller provides the time.
class Announcer {
 public:
  using Time = std::chrono::milliseconds;  ///< since any epoch, monotonic

  /// What the screen shows.
  struct Situation {
    QString problem;  ///< the microphone message, or empty
    QString status;
    QString note;  ///< with its octave
    double cents = 0.0;
    bool heard = false;
    bool inTune = false;
    bool playing = false;  ///< the reference tone, during which nothing is said
  };

  struct Answer {
    QString words{};                  ///< to announce now, or empty
    bool isOnScreen = false;          ///< the screen shows the same text
    std::optional<Time> lookAgain{};  ///< call again after this time even without a change
  };

  Answer look(const Situation& now, Time time);

 private:
  enum class Kind { nothing, problem, status, flat, sharp, inTune };

  /// Two situations with the same topic differ only in cents.
  struct Topic {
    Kind kind = Kind::nothing;
    QString about;  ///< the note, the status or the problem

    bool operator==(const Topic&) const = default;
  };

  static Topic topicOf(const Situation& now);
  Time settling(Kind next) const;
  bool hasMoved(const Situation& now) const;
  Answer say(const Situation& now, Time time);

  Topic said;
  double saidCents = 0.0;
  std::optional<Time> saidAt;
  Topic current;
  bool wasNews = false;
  Time newsSince{};
};

}  // namespace corvane
