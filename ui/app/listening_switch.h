// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <QWindow>
#include <memory>

#include "engine/tuner_engine.h"

namespace corvane {

/// Listens while the window is on the screen: starts the engine when the window is shown and each
/// time it becomes active, stops it when the window is minimised, hidden, or on another workspace,
/// as far as the desktop reports that. An inactive or covered window keeps listening, so that one
/// can tune while reading a score. What starts the engine while the window is off the screen, as a
/// screen reader's action may, is stopped.
class ListeningSwitch : public QObject {
 public:
  /// `window` must outlive the switch.
  ListeningSwitch(QWindow& window, std::shared_ptr<TunerEngine> engine);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void look();
  bool isShown() const;
  void setOnScreen(bool shown);
  void activeChanged();

  QWindow& window;
  std::shared_ptr<TunerEngine> engine;
  QTimer unexposed;
  std::shared_ptr<const void> observation;
  bool onScreen = false;
};

}  // namespace corvane
