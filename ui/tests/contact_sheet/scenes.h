// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "tunings/instrument.h"

namespace corvane::sheet {

/// One state of the screen.
struct Scene {
  QString name;  ///< the base name of its picture
  QSize area;    ///< of the screen, below the menu bar
  Instrument instrument = Instrument::guitar;
  std::string tuning;
  std::optional<double> cents;     ///< deviation of the heard note; none in silence
  bool prompt = false;             ///< the microphone is missing
  std::optional<int> locked = {};  ///< the index of the string
  std::vector<int> keys = {};      ///< Qt::Keys, pressed in turn
  double textZoom = 1.0;           ///< the user's text scale
};

/// Every size with every kind of tuning: in tune, flat or sharp in turn, and silent with the
/// microphone prompt; then the special states.
std::vector<Scene> scenes();

/// A locked string, an open list, the focus ring, texts of twice the size, and the smallest and the
/// largest display.
std::vector<Scene> particularScenes();

/// `presses` times the Tab key.
std::vector<int> tabs(int presses);

/// The special states that fill the smallest and the largest display.
std::vector<Scene> scenesOfWholeDisplays();

/// Each instrument at the window's first size, for software centres.
std::vector<Scene> screenshots();

/// The scenes for every scale factor: the first size with a note, and the smallest size with the
/// prompt.
std::vector<Scene> scenesOfEveryScale();

}  // namespace corvane::sheet
