// SPDX-License-Identifier: MIT
#include "ui/controls/value_item.h"

#include <QAccessible>

namespace corvane {

void ValueItem::setValue(double value) {
  if (value == shown) return;
  shown = value;
  emit moved();
  QAccessibleValueChangeEvent change(this, shown);
  QAccessible::updateAccessibility(&change);
}

}  // namespace corvane
