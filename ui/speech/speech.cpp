#include "ui/speech/speech.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "ui/model/tuner_model.h"
#include "ui/speech/spoken_text.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

// Every change of a word is an event to every assistive technology, which drops the sentences that
// matter when there are too many.
constexpr auto betweenWords = 500ms;

// A voice asks for the words only after it has been told that there are some.
constexpr auto untilSaid = 3000ms;

using Time = Announcer::Time;

std::optional<Time> sooner(std::optional<Time> one, std::optional<Time> other) {
  return one && other ? std::min(*one, *other) : one ? one : other;
}

}  // namespace

Speech::Speech(const TunerModel& shown) : tuner(shown) {
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
    watch();
    changed();
  } else {
    tuner.disconnect(this);
    qApp->disconnect(this);
    next.stop();
    fallSilent();
    setWords({});
  }
  emit activeChanged();
}

void Speech::watch() {
  connect(&tuner, &TunerModel::readoutChanged, this, &Speech::changed);
  connect(&tuner, &TunerModel::centsChanged, this, &Speech::changed);
  connect(&tuner, &TunerModel::levelChanged, this, &Speech::changed);
  connect(&tuner, &TunerModel::errorTextChanged, this, &Speech::changed);
  connect(&tuner, &TunerModel::playingReferenceChanged, this, &Speech::changed);
  connect(qApp, &QGuiApplication::applicationStateChanged, this, &Speech::changed);
}

/// One reading changes many things one after the other; only what comes out of it is put in words.
void Speech::changed() {
  if (!next.isActive() || next.intervalAsDuration() > 0ms) next.start(0ms);
}

void Speech::look() {
  const Time now(clock.elapsed());
  std::optional<Time> again;
  // Another program's user is not talked to.
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

/// After which time there is more to be done.
std::optional<Time> Speech::tell(Time now) {
  const Announcer::Answer answer = announcer.look(situation(), now);
  if (!answer.words.isEmpty()) {
    setAnnouncement(answer.words);
    if (answer.isOnScreen) takeBackAt = now + untilSaid;
  }
  if (!takeBackAt) return answer.lookAgain;
  if (now < *takeBackAt) return sooner(answer.lookAgain, *takeBackAt - now);
  // Who reads the screen would find it twice.
  setAnnouncement({});
  return answer.lookAgain;
}

/// Whoever comes back is told what is there then.
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
  return {.problem = tuner.errorText(),
          .status = tuner.status(),
          .note = tuner.noteLabel() + tuner.octaveLabel(),
          .cents = tuner.cents(),
          .heard = tuner.heard(),
          .inTune = tuner.inTune(),
          .playing = tuner.playingReference()};
}

Speech::Words Speech::current() const {
  const Announcer::Situation now = situation();
  return {meterInWords(now.heard, now.note, now.cents, 50.0),
          meterInWords(now.heard, now.note, now.cents, 10.0), levelInWords(tuner.level())};
}

void Speech::setWords(Words now) {
  if (now == words) return;
  words = std::move(now);
  emit wordsChanged();
}

}  // namespace corvane
