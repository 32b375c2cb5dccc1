// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <optional>

#include "engine/tuner_engine.h"
#include "ui/speech/announcer.h"

namespace corvane {

/// The tuner in words, for assistive technology. Observes nothing and makes no texts unless
/// assistive technology is running. Main thread only.
class Speech : public QObject, private QAccessible::ActivationObserver {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The words come from the tuner.")
  Q_PROPERTY(bool active READ isActive NOTIFY activeChanged)
  Q_PROPERTY(QString announcement READ announcement NOTIFY announced)
  Q_PROPERTY(QString centsMeter READ centsMeter NOTIFY wordsChanged)
  Q_PROPERTY(QString fineMeter READ fineMeter NOTIFY wordsChanged)
  Q_PROPERTY(QString level READ level NOTIFY wordsChanged)

 public:
  /// `engine` must outlive it.
  explicit Speech(TunerEngine& engine);
  ~Speech() override;

  bool isActive() const { return active; }  ///< assistive technology is running
  /// The last announcement. Empty before the first, three seconds after one that the screen shows
  /// too, and while another program has the focus.
  QString announcement() const { return said; }
  // The meters in words, at most half a second old; empty while inactive.
  QString centsMeter() const { return words.cents; }
  QString fineMeter() const { return words.fine; }
  QString level() const { return words.level; }

 signals:
  void activeChanged();
  void announced();  ///< also when the announcement becomes empty
  void wordsChanged();

 private:
  struct Words {
    QString cents;
    QString fine;
    QString level;

    bool operator==(const Words&) const = default;
  };

  void accessibilityActiveChanged(bool now) override;
  void look();
  std::optional<Announcer::Time> tell(Announcer::Time now);
  void fallSilent();
  void setAnnouncement(const QString& now);
  Announcer::Situation situation() const;
  Words current() const;
  void setWords(Words now);

  TunerEngine& engine;
  std::shared_ptr<const void> observation;  ///< while active
  bool active = false;
  Announcer announcer;
  QString said;
  std::optional<Announcer::Time> takeBackAt;
  Words words;
  QElapsedTimer clock;
  Announcer::Time wordsAt{-1000};  ///< before any limit
  QTimer next;
};

}  // namespace corvane
