// SPDX-License-Identifier: MIT
#include "ui/speech/announcer.h"

#include <algorithm>
#include <cmath>

#include "ui/speech/spoken_text.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

// A pluck gives wrong readings for up to two blocks of 85 ms, and three of the five smoothed
// readings must be of the new note.
constexpr auto afterPluck = 400ms;
// A string near the edge of "in tune" keeps crossing it.
constexpr auto intoTune = 500ms;
constexpr auto outOfTune = 1000ms;
// The silence between two plucks is not worth a sentence.
constexpr auto intoSilence = 2000ms;
// The time in which a listener can follow one short sentence.
constexpr auto pace = 1500ms;

// A move is announced if it is a quarter of the deviation, and more than the pitch wavers by
// itself.
constexpr double leastMove = 3.0;  // cents
constexpr double shareOfWay = 0.25;

}  // namespace

Announcer::Answer Announcer::look(const Situation& now, Time time) {
  const Topic topic = topicOf(now);
  const bool isNews = topic.kind != Kind::nothing && (topic != said || hasMoved(now));
  if (topic != current || isNews != wasNews) newsSince = time;
  current = topic;
  wasNews = isNews;
  if (!isNews) return {};
  const Time settled = newsSince + settling(topic.kind);
  const Time due = saidAt ? std::max(settled, *saidAt + pace) : settled;
  if (time >= due) return say(now, time);
  return {.lookAgain = due - time};
}

Announcer::Topic Announcer::topicOf(const Situation& now) {
  if (!now.problem.isEmpty()) return {Kind::problem, now.problem};
  if (now.playing) return {};
  if (!now.heard) return {Kind::status, now.status};
  if (now.inTune) return {Kind::inTune, now.note};
  return {now.cents < 0.0 ? Kind::flat : Kind::sharp, now.note};
}

Announcer::Time Announcer::settling(Kind next) const {
  if (next == Kind::problem) return 0ms;
  if (next == Kind::status) return intoSilence;
  if (next == Kind::inTune) return intoTune;
  return said.kind == Kind::inTune ? outOfTune : afterPluck;
}

/// Within one topic, since the last announcement.
bool Announcer::hasMoved(const Situation& now) const {
  if (said.kind != Kind::flat && said.kind != Kind::sharp) return false;
  const double enough = std::max(leastMove, std::abs(saidCents) * shareOfWay);
  return std::abs(now.cents - saidCents) >= enough;
}

Announcer::Answer Announcer::say(const Situation& now, Time time) {
  wasNews = false;
  said = current;
  saidCents = now.cents;
  saidAt = time;
  if (current.kind == Kind::problem || current.kind == Kind::status) {
    return {.words = current.about, .isOnScreen = true};
  }
  const QString verdict =
      current.kind == Kind::inTune ? QStringLiteral("in tune") : deviationInWords(now.cents);
  return {.words = current.about + QStringLiteral(", ") + verdict};
}

}  // namespace corvane
