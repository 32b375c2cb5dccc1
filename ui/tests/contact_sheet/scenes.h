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
  QString name;  ///< of its picture's file
  QSize area;    ///< what the screen is given, under the menu bar
  Instrument instrument = Instrument::guitar;
  std::string tuning;
  std::optional<double> cents;     ///< how far the heard note is off; nothing when nothing is heard
  bool prompt = false;             ///< the microphone is missing
  std::optional<int> locked = {};  ///< the index of the string
  std::vector<int> keys = {};      ///< pressed one after the other, each a Qt::Key
  double textZoom = 1.0;           ///< by which the user wants texts larger
};

/// Every size with every kind of tuning, heard in tune, flat or sharp in turn, and silent with the
/// microphone prompt; then what else there is to see.
std::vector<Scene> scenes();

/// A locked string, an open list, the ring that shows where the keyboard is, texts of twice the
/// size, and the whole of the smallest and of the largest display.
std::vector<Scene> particularScenes();

/// `presses` times the Tab key.
std::vector<int> tabs(int presses);

/// Those of them that fill the smallest and the largest display.
std::vector<Scene> scenesOfWholeDisplays();

/// An instrument each at the window's first size, for software centres.
std::vector<Scene> screenshots();

/// The few of them that are drawn for every scale factor of the display: the first size, heard, and
/// the smallest, shrunk to hold the prompt.
std::vector<Scene> scenesOfEveryScale();

}  // namespace corvane::sheet
