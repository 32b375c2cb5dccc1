#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QObject>
#include <QString>
#include <memory>

#include "engine/tuner_engine.h"
#include "ui/fit.h"

namespace corvane {

/// Shows the engine to the screen: every text and colour as it is drawn. Main thread only.
class TunerModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The program hands its one model to the window.")
  Q_PROPERTY(bool heard READ heard NOTIFY readoutChanged)
  Q_PROPERTY(QString noteLabel READ noteLabel NOTIFY readoutChanged)
  Q_PROPERTY(QString octaveLabel READ octaveLabel NOTIFY readoutChanged)
  Q_PROPERTY(QString centsText READ centsText NOTIFY readoutChanged)
  Q_PROPERTY(QString status READ status NOTIFY readoutChanged)
  Q_PROPERTY(QColor needleColor READ needleColor NOTIFY readoutChanged)
  Q_PROPERTY(QString frequencyText READ frequencyText NOTIFY readoutChanged)
  Q_PROPERTY(QString hearingText READ hearingText NOTIFY readoutChanged)
  Q_PROPERTY(QString errorText READ errorText NOTIFY errorTextChanged)

 public:
  explicit TunerModel(std::shared_ptr<TunerEngine> engine, QObject* parent = nullptr);

  bool heard() const { return engine->heard(); }
  QString noteLabel() const;
  QString octaveLabel() const;
  QString centsText() const;
  QString status() const;
  QColor needleColor() const;
  QString frequencyText() const;
  QString hearingText() const;
  QString errorText() const;  ///< empty when there is no problem

  Q_INVOKABLE static corvane::Fit fit(double width, double height);

 signals:
  void readoutChanged();
  void errorTextChanged();

 private:
  void published(Field field);

  std::shared_ptr<TunerEngine> engine;
  std::shared_ptr<const void> observation;
};

}  // namespace corvane
