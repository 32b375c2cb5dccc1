// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

#include "scenes.h"

namespace corvane::sheet {

/// The window drawn for a scene, needles at rest. Needs an application.
QImage picture(const Scene& scene);

/// A text of the screen, or of the open list, with its colour and opacity, and the colour below its
/// middle.
struct TextSeen {
  QString text;
  QColor ink;
  QColor ground;
};
std::vector<TextSeen> textsOf(const Scene& scene);

/// A shape or its outline, likewise.
struct MarkSeen {
  QString kind;  ///< of the item
  QColor ink;
  QColor ground;
};
std::vector<MarkSeen> marksOf(const Scene& scene);

/// The texts that are cut off.
std::vector<QString> cutTextsOf(const Scene& scene);

/// The number of pixels with a channel that differs by 24 of 255 or more; all if the sizes differ.
/// 0 if these are at most 32 and none differs by 72: versions of FreeType smooth the edges of at
/// most 20 pixels differently, by up to 64, while the strokes of any text are more than 100 from
/// their background. The first drawing of the big note differs from later ones by up to 19.
int differentPixels(const QImage& a, const QImage& b);

}  // namespace corvane::sheet
