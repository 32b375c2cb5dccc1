#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QObject>

namespace corvane {

/// The screen's palette.
class TunerTheme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(QColor bg MEMBER bg CONSTANT)
  Q_PROPERTY(QColor card MEMBER card CONSTANT)
  Q_PROPERTY(QColor muted MEMBER muted CONSTANT)
  Q_PROPERTY(QColor flat MEMBER flat CONSTANT)
  Q_PROPERTY(QColor gold MEMBER gold CONSTANT)
  Q_PROPERTY(QColor green MEMBER green CONSTANT)
  Q_PROPERTY(QColor sharp MEMBER sharp CONSTANT)

 public:
  static const QColor bg;     ///< window background
  static const QColor card;   ///< cards and unselected chips
  static const QColor muted;  ///< nothing heard; secondary texts
  static const QColor flat;   ///< too low; the microphone message
  static const QColor gold;   ///< accent
  static const QColor green;  ///< in tune
  static const QColor sharp;  ///< too high
};

/// The colour of the needle, the note and the status.
QColor needleColor(bool heard, bool inTune, double cents);

}  // namespace corvane
