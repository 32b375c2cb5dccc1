#pragma once

#include <QColor>
#include <QImage>

#include "scenes.h"

namespace corvane::sheet {

/// The window as it is drawn for a scene, its needles at rest. Needs a running application.
QImage picture(const Scene& scene);

/// A text of the screen, in its own colour and opacity, and the middle of what it stands on. Where
/// a list is open, those of the list.
struct TextSeen {
  QString text;
  QColor ink;
  QColor ground;
};
std::vector<TextSeen> textsOf(const Scene& scene);

/// A shape or the outline of one, in the same way.
struct MarkSeen {
  QString kind;  ///< of the item
  QColor ink;
  QColor ground;
};
std::vector<MarkSeen> marksOf(const Scene& scene);

/// The texts of which not all is to be seen.
std::vector<QString> cutTextsOf(const Scene& scene);

/// How many pixels have a channel that differs by 24 steps of 255 or more, or all where the sizes
/// differ. 0 where these are 32 at most and none of them differs by 72: versions of FreeType smooth
/// the edges of at most 20 pixels differently, by up to 64, while the strokes of any text are more
/// than 100 from their ground. The first big note that is drawn differs from the next ones by up to
/// 19.
int differentPixels(const QImage& a, const QImage& b);

}  // namespace corvane::sheet
