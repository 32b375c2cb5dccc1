#include "ui/tuner_model.h"

#include <utility>

#include "ui/readout.h"
#include "ui/tuner_theme.h"

namespace corvane {

TunerModel::TunerModel(std::shared_ptr<TunerEngine> tuner, QObject* parent)
    : QObject(parent), engine(std::move(tuner)) {
  observation = engine->observe([this](Field field) { published(field); });
}

void TunerModel::published(Field field) {
  switch (field) {
    case Field::instrument:
    case Field::heard:
    case Field::inTune:
    case Field::cents:
    case Field::frequency:
    case Field::noteLabel:
    case Field::octaveLabel:
    case Field::heardSpelling:
    case Field::status:
      emit readoutChanged();
      return;
    case Field::errorText:
      emit errorTextChanged();
      return;
    default:
      return;
  }
}

QString TunerModel::noteLabel() const {
  return QString::fromStdString(engine->noteLabel());
}

QString TunerModel::octaveLabel() const {
  return QString::fromStdString(engine->octaveLabel());
}

QString TunerModel::centsText() const {
  return corvane::centsText(engine->heard(), engine->cents());
}

QString TunerModel::status() const {
  return QString::fromStdString(engine->status());
}

QColor TunerModel::needleColor() const {
  return corvane::needleColor(engine->heard(), engine->inTune(), engine->cents());
}

QString TunerModel::frequencyText() const {
  return corvane::frequencyText(engine->heard(), engine->frequency());
}

QString TunerModel::hearingText() const {
  return corvane::hearingText(engine->heard(), engine->instrument() == Instrument::piano,
                              engine->heardSpelling());
}

QString TunerModel::errorText() const {
  return QString::fromStdString(engine->errorText().value_or(""));
}

Fit TunerModel::fit(double width, double height) {
  return Fit::forSize(width, height);
}

}  // namespace corvane
