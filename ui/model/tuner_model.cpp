// SPDX-License-Identifier: MIT
#include "ui/model/tuner_model.h"

#include <cmath>
#include <utility>

#include "base/require.h"
#include "tunings/instrument.h"
#include "ui/model/concert_pitch.h"
#include "ui/model/menu_entries.h"
#include "ui/model/privacy_policy.h"
#include "ui/model/reading_text.h"
#include "ui/paint/tuner_theme.h"

namespace corvane {
namespace {

QString qString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QColor colorOf(const DisplayState& state) {
  return needleColor(state.heard, state.inTune, state.cents);
}

/// Rounded far below a pixel, so that a decaying level stops changing.
double levelOf(const DisplayState& state) {
  constexpr double steps = 1 << 20;
  return std::round(state.signal * steps) / steps;
}

}  // namespace

TunerModel::TunerModel(std::shared_ptr<TunerEngine> tuner, std::shared_ptr<UrlOpener> opener,
                       QObject* parent)
    : QObject(parent), engine(std::move(tuner)), urlOpener(std::move(opener)) {
  concertPitchMenu.setEntries(concertPitchEntries());
  helpEntriesMenu.setEntries(helpEntries());
  updateTunings();
  stringRow.update(*engine);
  observation = engine->observe(
      [this](const DisplayState& before, const DisplayState& now) { changed(before, now); });
}

/// One signal for each group of properties in which the two states differ.
void TunerModel::changed(const DisplayState& before, const DisplayState& now) {
  using State = DisplayState;
  const auto differ = [&](auto... fields) { return ((before.*fields != now.*fields) || ...); };

  const bool selection = differ(&State::instrument, &State::tuningID, &State::leftHanded);
  const bool verdict = differ(&State::heard, &State::inTune);
  const bool lock = differ(&State::lockedStringIndex);
  if (selection) updateTunings();
  if (selection || verdict || lock || differ(&State::highlightedString)) stringRow.update(*engine);

  if (selection) emit selectionChanged();
  if (lock) emit lockChanged();
  if (selection || verdict ||
      differ(&State::noteLabel, &State::octaveLabel, &State::heardSpelling, &State::status)) {
    emit readoutChanged();
  }
  if (verdict || differ(&State::cents)) emit centsChanged();
  if (colorOf(before) != colorOf(now)) emit needleColorChanged();
  if (differ(&State::heard, &State::frequency)) emit frequencyChanged();
  if (levelOf(before) != levelOf(now)) emit levelChanged();
  if (differ(&State::errorText)) emit errorTextChanged();
  if (differ(&State::a4)) emit a4Changed();
  if (differ(&State::playingReference)) emit playingReferenceChanged();
}

void TunerModel::updateTunings() {
  tuningMenu.setEntries(tuningEntries(engine->state().instrument, engine->tuning().id));
}

QString TunerModel::noteLabel() const {
  return qString(engine->state().noteLabel);
}

QString TunerModel::octaveLabel() const {
  return qString(engine->state().octaveLabel);
}

QString TunerModel::centsText() const {
  return corvane::centsText(engine->state().heard, engine->state().cents);
}

QString TunerModel::status() const {
  return qString(engine->state().status);
}

double TunerModel::level() const {
  return levelOf(engine->state());
}

QColor TunerModel::needleColor() const {
  return colorOf(engine->state());
}

QString TunerModel::frequencyText() const {
  return corvane::frequencyText(engine->state().heard, engine->state().frequency);
}

QString TunerModel::hearingText() const {
  return corvane::hearingText(engine->state().heard, isPiano(), engine->state().heardSpelling);
}

QString TunerModel::errorText() const {
  return qString(engine->state().errorText.value_or(""));
}

QStringList TunerModel::instruments() const {
  QStringList titles;
  for (const Instrument each : allInstruments) titles.push_back(qString(displayTitle(each)));
  return titles;
}

void TunerModel::setInstrument(int index) {
  require(index >= 0 && static_cast<std::size_t>(index) < allInstruments.size(),
          "an instrument is one of the three");
  engine->setInstrument(allInstruments[static_cast<std::size_t>(index)]);
}

QString TunerModel::subtitle() const {
  return isPiano() ? QStringLiteral("Piano chromatic") : tuningDetail();
}

QString TunerModel::tuningName() const {
  return qString(engine->tuning().name);
}

QString TunerModel::tuningDetail() const {
  return qString(engine->tuning().detail);
}

int TunerModel::wholeHertz() const {
  return static_cast<int>(corvane::wholeHertz(engine->state().a4));
}

QString TunerModel::concertPitchTitle() const {
  return corvane::concertPitchTitle(engine->state().a4);
}

QList<int> TunerModel::quickPitches() const {
  return {corvane::quickPitches.begin(), corvane::quickPitches.end()};
}

QString TunerModel::appVersion() const {
  return QStringLiteral(CORVANE_VERSION);
}

QString TunerModel::privacyTitle() const {
  return PrivacyPolicy::title();
}

void TunerModel::chooseTuning(const QString& id) {
  engine->setTuningID(id.toStdString());
}

void TunerModel::toggleLock(int stringIndex) {
  const bool selected = engine->state().lockedStringIndex == stringIndex;
  engine->setLockedStringIndex(selected ? std::nullopt : std::optional<std::int64_t>(stringIndex));
}

void TunerModel::releaseLock() {
  engine->setLockedStringIndex(std::nullopt);
}

void TunerModel::allowMicrophone() {
  engine->allowMicrophone();
}

void TunerModel::openPrivacyPolicy() {
  urlOpener->openURL(PrivacyPolicy::url().toString(QUrl::FullyEncoded).toStdString());
}

Fit TunerModel::fit(double width, double height) {
  return Fit::forSize(width, height);
}

QString TunerModel::scaleText(double span) {
  return corvane::scaleText(span);
}

}  // namespace corvane
