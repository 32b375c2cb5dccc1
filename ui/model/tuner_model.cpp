#include "ui/model/tuner_model.h"

#include <utility>

#include "base/require.h"
#include "tunings/instrument.h"
#include "ui/model/concert_pitch.h"
#include "ui/model/menu_entries.h"
#include "ui/model/needle.h"
#include "ui/model/privacy_policy.h"
#include "ui/model/reading_text.h"
#include "ui/paint/tuner_theme.h"

namespace corvane {
namespace {

QString qString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Whether `now` is not what was seen last; it is from then on.
template <class Value>
bool isNew(Value& seen, const Value& now) {
  return std::exchange(seen, now) != now;
}

}  // namespace

TunerModel::TunerModel(std::shared_ptr<TunerEngine> tuner,
                       std::shared_ptr<MicrophonePermission> permission,
                       std::shared_ptr<UrlOpener> opener, QObject* parent)
    : QObject(parent),
      engine(std::move(tuner)),
      microphonePermission(std::move(permission)),
      urlOpener(std::move(opener)),
      seen{engine->heard(),       engine->inTune(),
           engine->cents(),       engine->frequency(),
           engine->signal(),      engine->noteLabel(),
           engine->octaveLabel(), engine->heardSpelling(),
           engine->status(),      engine->highlightedString()} {
  concertPitchMenu.setEntries(concertPitchEntries());
  helpEntriesMenu.setEntries(helpEntries());
  updateTunings();
  observation = engine->observe([this](Field field) { published(field); });
}

/// Nearly every assignment of a reading's fields assigns what was there already: the screen is told
/// of the others alone.
void TunerModel::published(Field field) {
  switch (field) {
    case Field::instrument:
    case Field::tuningID:
    case Field::leftHanded:
      updateTunings();
      emit selectionChanged();
      emit readoutChanged();
      return;
    case Field::a4:
      emit a4Changed();
      return;
    case Field::lockedStringIndex:
      stringRow.update(*engine);
      emit lockChanged();
      return;
    case Field::highlightedString:
      if (isNew(seen.highlightedString, engine->highlightedString())) stringRow.update(*engine);
      return;
    case Field::heard:
      if (isNew(seen.heard, engine->heard())) verdictChanged();
      return;
    case Field::inTune:
      if (isNew(seen.inTune, engine->inTune())) verdictChanged();
      return;
    case Field::cents:
      if (isNew(seen.cents, engine->cents())) emit centsChanged();
      return;
    case Field::frequency:
      if (isNew(seen.frequency, engine->frequency())) emit frequencyChanged();
      return;
    case Field::noteLabel:
      if (isNew(seen.noteLabel, engine->noteLabel())) emit readoutChanged();
      return;
    case Field::octaveLabel:
      if (isNew(seen.octaveLabel, engine->octaveLabel())) emit readoutChanged();
      return;
    case Field::heardSpelling:
      if (isNew(seen.heardSpelling, engine->heardSpelling())) emit readoutChanged();
      return;
    case Field::status:
      if (isNew(seen.status, engine->status())) emit readoutChanged();
      return;
    case Field::signal:
      if (isNew(seen.signal, engine->signal())) emit levelChanged();
      return;
    case Field::errorText:
      emit errorTextChanged();
      return;
    case Field::playingReference:
      emit playingReferenceChanged();
      return;
    case Field::listening:
    case Field::micAllowed:
      return;
  }
}

void TunerModel::verdictChanged() {
  stringRow.update(*engine);
  emit readoutChanged();
  emit centsChanged();
  emit frequencyChanged();
}

void TunerModel::updateTunings() {
  tuningMenu.setEntries(tuningEntries(engine->instrument(), engine->tuning().id));
  stringRow.update(*engine);
}

QString TunerModel::noteLabel() const {
  return qString(engine->noteLabel());
}

QString TunerModel::octaveLabel() const {
  return qString(engine->octaveLabel());
}

QString TunerModel::centsText() const {
  return corvane::centsText(engine->heard(), engine->cents());
}

QString TunerModel::status() const {
  return qString(engine->status());
}

QColor TunerModel::needleColor() const {
  return corvane::needleColor(engine->heard(), engine->inTune(), engine->cents());
}

QString TunerModel::frequencyText() const {
  return corvane::frequencyText(engine->heard(), engine->frequency());
}

QString TunerModel::hearingText() const {
  return corvane::hearingText(engine->heard(), isPiano(), engine->heardSpelling());
}

QString TunerModel::errorText() const {
  return qString(engine->errorText().value_or(""));
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
  return static_cast<int>(corvane::wholeHertz(engine->a4()));
}

QString TunerModel::concertPitchTitle() const {
  return corvane::concertPitchTitle(engine->a4());
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
  const bool selected = engine->lockedStringIndex() == stringIndex;
  engine->setLockedStringIndex(selected ? std::nullopt : std::optional<std::int64_t>(stringIndex));
}

void TunerModel::releaseLock() {
  engine->setLockedStringIndex(std::nullopt);
}

void TunerModel::allowMicrophone() {
  engine->abandonMicRequest();
  const bool denied = microphonePermission->recordPermission() == RecordPermission::denied;
  denied ? engine->openMicSettings() : engine->start();
}

void TunerModel::openPrivacyPolicy() {
  urlOpener->openURL(PrivacyPolicy::url().toString(QUrl::FullyEncoded).toStdString());
}

Fit TunerModel::fit(double width, double height) {
  return Fit::forSize(width, height);
}

double TunerModel::needleCentre(double width, double height, double span, double value) {
  return corvane::needleCentre(width, height, span, value);
}

bool TunerModel::needleMoves(double width, double height, double span, double from, double to) {
  return corvane::needleMoves(width, height, span, from, to);
}

QString TunerModel::scaleText(double span) {
  return corvane::scaleText(span);
}

}  // namespace corvane
