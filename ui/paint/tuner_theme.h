// SPDX-License-Identifier: MIT
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

/// What the palette does not name: mostly translucent, to be laid over a card or the window.
class Shades : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(QColor track MEMBER track CONSTANT)
  Q_PROPERTY(QColor outline MEMBER outline CONSTANT)
  Q_PROPERTY(QColor capsule MEMBER capsule CONSTANT)
  Q_PROPERTY(QColor raised MEMBER raised CONSTANT)
  Q_PROPERTY(QColor chosen MEMBER chosen CONSTANT)
  Q_PROPERTY(QColor off MEMBER off CONSTANT)
  Q_PROPERTY(QColor highlight MEMBER highlight CONSTANT)
  Q_PROPERTY(QColor held MEMBER held CONSTANT)
  Q_PROPERTY(QColor unavailable MEMBER unavailable CONSTANT)
  Q_PROPERTY(QColor line MEMBER line CONSTANT)
  Q_PROPERTY(QColor menu MEMBER menu CONSTANT)

 public:
  static const QColor track;        ///< what segments, steps and bars lie on
  static const QColor outline;      ///< around a chip that is not locked
  static const QColor capsule;      ///< of a quick pitch
  static const QColor raised;       ///< the chosen one of several segments
  static const QColor chosen;       ///< "Auto" and a quick pitch while they are
  static const QColor off;          ///< a switch
  static const QColor highlight;    ///< where one is in a menu
  static const QColor held;         ///< an entry while it is pressed, a menu while its list is open
  static const QColor unavailable;  ///< a symbol that does nothing
  static const QColor line;         ///< around a menu, and between two buttons
  static const QColor menu;         ///< opaque
};

/// The colour of the needle, the note and the status.
QColor needleColor(bool heard, bool inTune, double cents);

/// The fill of a string chip. Being selected shows in its outline only.
QColor chipFill(bool selected, bool hearing, bool inTune);

}  // namespace corvane
