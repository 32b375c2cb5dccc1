// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "engine/tuner_engine.h"
#include "ui/model/menu_model.h"
#include "ui/model/string_row_model.h"
#include "ui/screen/fit.h"
#include "ui/speech/speech.h"

namespace corvane {

/// The engine's state as the screen draws it, texts and colours included; forwards user input to
/// the engine. Main thread only.
class TunerModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The program hands its one model to the window.")

  // What is heard.
  Q_PROPERTY(bool heard READ heard NOTIFY readoutChanged)
  Q_PROPERTY(double cents READ cents NOTIFY centsChanged)
  Q_PROPERTY(QString noteLabel READ noteLabel NOTIFY readoutChanged)
  Q_PROPERTY(QString octaveLabel READ octaveLabel NOTIFY readoutChanged)
  Q_PROPERTY(QString centsText READ centsText NOTIFY centsChanged)
  Q_PROPERTY(QString status READ status NOTIFY readoutChanged)
  Q_PROPERTY(QColor needleColor READ needleColor NOTIFY needleColorChanged)
  Q_PROPERTY(QString frequencyText READ frequencyText NOTIFY frequencyChanged)
  Q_PROPERTY(QString hearingText READ hearingText NOTIFY readoutChanged)
  Q_PROPERTY(double level READ level NOTIFY levelChanged)
  Q_PROPERTY(QString errorText READ errorText NOTIFY errorTextChanged)
  Q_PROPERTY(corvane::Speech* speech READ speech CONSTANT)

  // What the user has chosen.
  Q_PROPERTY(QStringList instruments READ instruments CONSTANT)
  Q_PROPERTY(int instrument READ instrument WRITE setInstrument NOTIFY selectionChanged)
  Q_PROPERTY(bool isPiano READ isPiano NOTIFY selectionChanged)
  Q_PROPERTY(QString subtitle READ subtitle NOTIFY selectionChanged)
  Q_PROPERTY(QString tuningName READ tuningName NOTIFY selectionChanged)
  Q_PROPERTY(QString tuningDetail READ tuningDetail NOTIFY selectionChanged)
  Q_PROPERTY(corvane::MenuModel* tunings READ tunings CONSTANT)
  Q_PROPERTY(bool leftHanded READ leftHanded WRITE setLeftHanded NOTIFY selectionChanged)
  Q_PROPERTY(corvane::StringRowModel* strings READ strings CONSTANT)
  Q_PROPERTY(bool locked READ locked NOTIFY lockChanged)
  Q_PROPERTY(double a4 READ a4 WRITE setA4 NOTIFY a4Changed)
  Q_PROPERTY(int wholeHertz READ wholeHertz NOTIFY a4Changed)
  Q_PROPERTY(QString concertPitchTitle READ concertPitchTitle NOTIFY a4Changed)
  Q_PROPERTY(corvane::MenuModel* concertPitches READ concertPitches CONSTANT)
  Q_PROPERTY(QList<int> quickPitches READ quickPitches CONSTANT)
  Q_PROPERTY(bool playingReference READ playingReference NOTIFY playingReferenceChanged)

  // Constants.
  Q_PROPERTY(corvane::MenuModel* helpMenu READ helpMenu CONSTANT)
  Q_PROPERTY(QString appVersion READ appVersion CONSTANT)
  Q_PROPERTY(QString privacyTitle READ privacyTitle CONSTANT)

 public:
  TunerModel(std::shared_ptr<TunerEngine> engine, std::shared_ptr<UrlOpener> urlOpener,
             QObject* parent = nullptr);

  bool heard() const { return engine->state().heard; }
  double cents() const { return engine->state().cents; }
  QString noteLabel() const;
  QString octaveLabel() const;
  QString centsText() const;
  QString status() const;
  QColor needleColor() const;
  QString frequencyText() const;
  QString hearingText() const;
  double level() const;       ///< 0 to 1
  QString errorText() const;  ///< empty when there is no problem
  Speech* speech() { return &speechItem; }

  QStringList instruments() const;
  int instrument() const { return static_cast<int>(engine->state().instrument); }
  void setInstrument(int index);  ///< a position in `instruments`
  bool isPiano() const { return engine->state().instrument == Instrument::piano; }
  QString subtitle() const;
  QString tuningName() const;
  QString tuningDetail() const;
  MenuModel* tunings() { return &tuningMenu; }
  bool leftHanded() const { return engine->state().leftHanded; }
  void setLeftHanded(bool leftHanded) { engine->setLeftHanded(leftHanded); }
  StringRowModel* strings() { return &stringRow; }
  bool locked() const { return engine->state().lockedStringIndex.has_value(); }
  double a4() const { return engine->state().a4; }  ///< Hz
  void setA4(double hertz) { engine->setA4(hertz); }
  int wholeHertz() const;
  QString concertPitchTitle() const;
  MenuModel* concertPitches() { return &concertPitchMenu; }
  QList<int> quickPitches() const;
  bool playingReference() const { return engine->state().playingReference; }

  MenuModel* helpMenu() { return &helpEntriesMenu; }
  QString appVersion() const;
  QString privacyTitle() const;

  Q_INVOKABLE void chooseTuning(const QString& id);
  /// Locks the string at this position in the tuning, or releases it if it is locked.
  Q_INVOKABLE void toggleLock(int stringIndex);
  Q_INVOKABLE void releaseLock();
  Q_INVOKABLE void playReference() { engine->playReference(); }
  /// Opens the system's settings if the microphone is denied, starts listening otherwise.
  Q_INVOKABLE void allowMicrophone();
  Q_INVOKABLE void openPrivacyPolicy();

  Q_INVOKABLE static corvane::Fit fit(double width, double height);
  Q_INVOKABLE static QString scaleText(double span);

 signals:
  // One signal for each group of properties that change together, so that a reading makes the
  // screen evaluate few bindings.
  void readoutChanged();
  void centsChanged();
  void needleColorChanged();
  void frequencyChanged();
  void levelChanged();
  void errorTextChanged();
  void selectionChanged();
  void lockChanged();
  void a4Changed();
  void playingReferenceChanged();

 private:
  void changed(const DisplayState& before, const DisplayState& now);
  void updateTunings();

  std::shared_ptr<TunerEngine> engine;
  std::shared_ptr<UrlOpener> urlOpener;
  MenuModel tuningMenu;
  MenuModel concertPitchMenu;
  MenuModel helpEntriesMenu;
  StringRowModel stringRow;
  Speech speechItem{*engine};
  std::shared_ptr<const void> observation;
};

}  // namespace corvane
