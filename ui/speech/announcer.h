#pragma once

#include <QString>
#include <chrono>
#include <optional>

namespace corvane {

/// Chooses what a voice says of the tuner while the readings come, eleven a second, and when: each
/// change once it has lasted, and of a string that is being turned only what has moved enough to be
/// worth another sentence. A note that stays in tune is said once. Time comes from outside.
class Announcer {
 public:
  using Time = std::chrono::milliseconds;  ///< since any moment, never backwards

  /// What the screen shows.
  struct Situation {
    QString problem;  ///< the message over the microphone button; empty when there is none
    QString status;
    QString note;  ///< with its octave
    double cents = 0.0;
    bool heard = false;
    bool inTune = false;
    bool playing = false;  ///< the reference tone, which is not to be talked over
  };

  struct Answer {
    QString words{};                  ///< to be said now; empty for nothing
    bool isOnScreen = false;          ///< the words are those of a text that can be read there
    std::optional<Time> lookAgain{};  ///< after which time something may be due without a change
  };

  Answer look(const Situation& now, Time time);

 private:
  enum class Kind { nothing, problem, status, flat, sharp, inTune };

  /// What makes one situation another one; within one only the cents move.
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
