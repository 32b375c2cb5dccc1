// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>

namespace corvane {

/// The sizes of the screen's regions, in points, computed from the available area.
struct Fit {
  Q_GADGET
  QML_VALUE_TYPE(fit)
  Q_PROPERTY(double note MEMBER note)
  Q_PROPERTY(double gap MEMBER gap)
  Q_PROPERTY(double pad MEMBER pad)
  Q_PROPERTY(double side MEMBER side)
  Q_PROPERTY(double chip MEMBER chip)
  Q_PROPERTY(double bar MEMBER bar)
  Q_PROPERTY(bool compact MEMBER compact)
  Q_PROPERTY(bool showsHint MEMBER showsHint)
  Q_PROPERTY(bool showsVersion MEMBER showsVersion)

 public:
  double note = 0.0;          ///< type size of the big note
  double gap = 0.0;           ///< vertical space between regions
  double pad = 0.0;           ///< above and below the column
  double side = 0.0;          ///< left and right of the column
  double chip = 0.0;          ///< side of a string chip
  double bar = 0.0;           ///< thickness of a meter bar
  bool compact = false;       ///< tighter paddings in the cards
  bool showsHint = false;     ///< the concert-pitch hint
  bool showsVersion = false;  ///< the version in the footer

  bool operator==(const Fit&) const = default;

  /// For an area of `width` by `height` points.
  static Fit forSize(double width, double height);
};

}  // namespace corvane
