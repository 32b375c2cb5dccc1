#include "ui/first_size.h"

#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace corvane {

void fitToScreen(QWindow& window) {
  const int room = window.screen()->availableGeometry().height();
  window.setHeight(std::max(std::min(window.height(), room), window.minimumHeight()));
}

}  // namespace corvane
