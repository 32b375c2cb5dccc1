// SPDX-License-Identifier: MIT
#include "ui/speech/speech.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "ui/speech/spoken_text.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

// Each change of a text is an event for assistive technology, which drops announcements when there
// are too many events.
constexpr auto betweenWords = 500ms;

// Screen readers fetch the text after the show event.
constexpr auto untilSaid = 3000ms;

using Time = Announcer::Time;

std::optional<Time> sooner(std::optional<Time> one, std::optional<Time> other) {
  return one && other ? std::min(*one, *other) : one ? one : other;
}

}  // namespace

Speech::Speech(TunerEngine& tuner) : engine(tuner) {
  clock.start();
  next.setSingleShot(true);
  connect(&next, &QTimer::timeout, this, &Speech::look);
  QAccessible::installActivationObserver(this);
  accessibilityActiveChanged(QAccessible::isActive());
}

Speech::~Speech() {
  QAccessible::removeActivationObserver(this);
}

void Speech::accessibilityActiveChanged(bool now) {
  if (std::exchange(active, now) == now) return;
  if (active) {
    observation = engine.observe([this](const DisplayState&, const DisplayState&) { look(); });
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &Speech::look);
    next.start(0ms);  // The screen may not be built yet.
  } else {
    observation = nullptr;
    qApp->disconnect(this);
    next.stop();
    fallSilent();
    setWords({});
  }
  emit activeChanged();
}

void Speech::look() {
  next.stop();
  const Time now(clock.elapsed());
  std::optional<Time> again;
  // Silent while another program has the focus.
  if (QGuiApplication::applicationState() == Qt::ApplicationActive) {
    again = tell(now);
  } else {
    fallSilent();
  }
  if (Words latest = current(); latest != words) {
    const auto rest = wordsAt + betweenWords - now;
    if (rest <= 0ms) {
      wordsAt = now;
      setWords(std::move(latest));
    } else {
      again = sooner(again, rest);
    }
  }
  if (again) next.start(*again);
}

/// Returns the time after which to call again, if any.
std::optional<Time> Speech::tell(Time now) {
  const Announcer::Answer answer = announcer.look(situation(), now);
  if (!answer.words.isEmpty()) {
    setAnnouncement(answer.words);
    if (answer.isOnScreen) takeBackAt = now + untilSaid;
  }
  if (!takeBackAt) return answer.lookAgain;
  if (now < *takeBackAt) return sooner(answer.lookAgain, *takeBackAt - now);
  // Screen text must not appear twice to a user who explores the screen.
  setAnnouncement({});
  return answer.lookAgain;
}

/// Starts afresh, so that a returning user hears the present state.
void Speech::fallSilent() {
  announcer = {};
  setAnnouncement({});
}

void Speech::setAnnouncement(const QString& now) {
  takeBackAt.reset();
  if (now.isEmpty() && said.isEmpty()) return;
  said = now;
  emit announced();
}

Announcer::Situation Speech::situation() const {
  const DisplayState& state = engine.state();
  return {.problem = QString::fromStdString(state.errorText.value_or("")),
          .status = QString::fromStdString(state.status),
          .note = QString::fromStdString(state.noteLabel + state.octaveLabel),
          .cents = state.cents,
          .heard = state.heard,
          .inTune = state.inTune,
          .playing = state.playingReference};
}

Speech::Words Speech::current() const {
  const Announcer::Situation now = situation();
  return {meterInWords(now.heard, now.note, now.cents, 50.0),
          meterInWords(now.heard, now.note, now.cents, 10.0), levelInWords(engine.state().signal)};
}

void Speech::setWords(Words now) {
  if (now == words) return;
  words = std::move(now);
  emit wordsChanged();
}

}  // namespace corvane
