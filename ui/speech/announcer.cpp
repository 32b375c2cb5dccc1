#include "ui/speech/announcer.h"

#include <algorithm>
#include <cmath>

#include "ui/speech/spoken_text.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

// The pluck of a string is read as anything for up to two blocks of a twelfth of a second each, and
// three of the five readings that are smoothed must be of the new note.
constexpr auto afterPluck = 400ms;
// A string that swings through the edge of "in tune" is neither in nor out of it.
constexpr auto intoTune = 500ms;
constexpr auto outOfTune = 1000ms;
// Between two plucks there is silence that nobody needs to be told of.
constexpr auto intoSilence = 2000ms;
// Nobody follows more than one short sentence in this time.
constexpr auto pace = 1500ms;

// A string has moved enough for another sentence when a quarter of the way is done, but not for
// the wavering of its pitch.
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

/// Within one topic.
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
