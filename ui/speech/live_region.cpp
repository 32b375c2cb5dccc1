// SPDX-License-Identifier: MIT
#include "ui/speech/live_region.h"

#include <QAccessible>

namespace corvane {

void LiveRegion::setWords(const QString& words) {
  if (words == said) return;
  said = words;
  emit wordsChanged();
  if (said.isEmpty()) return;
  QAccessibleEvent appearance(this, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&appearance);
}

}  // namespace corvane
