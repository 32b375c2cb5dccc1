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

/// The tuner in words, for assistive technology: while none listens, nothing is put into words and
/// nothing is watched. Main thread only.
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

  bool isActive() const { return active; }  ///< somebody listens
  /// What was said last, of what changed. Empty before the first, once what is said stands on the
  /// screen as well and has been said, and while another program has the keyboard.
  QString announcement() const { return said; }
  // What the meters show, no more than half a second ago; empty while nobody listens.
  QString centsMeter() const { return words.cents; }
  QString fineMeter() const { return words.fine; }
  QString level() const { return words.level; }

 signals:
  void activeChanged();
  void announced();  ///< also when the announcement is taken back
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
  Announcer::Time wordsAt{-1000};  ///< long ago
  QTimer next;
};

}  // namespace corvane
