#pragma once

#include <QColor>
#include <vector>

namespace corvane::sheet {

/// What is seen of `ink` on `ground`, in 64-bit floats of the sRGB values as they are.
QColor over(const QColor& ink, const QColor& ground);

/// All of the layers over the first, which is opaque.
QColor flattened(const std::vector<QColor>& layers);

/// The contrast ratio of WCAG 2.1, from 1 to 21, of two opaque colours.
double contrast(const QColor& one, const QColor& other);

}  // namespace corvane::sheet
