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

/// All pictures side by side, made smaller, under their names.
QImage contactSheet(const std::vector<Scene>& scenes);

/// The same part of the screen from each of the folders for scale factors in `folder`, pixel for
/// pixel.
QImage scalesSheet(const QString& folder);

/// How far apart two pictures are: the share of pixels of which a channel differs by more than
/// `channelStep`; 1 when the sizes differ.
double difference(const QImage& a, const QImage& b);

/// Text is drawn by the font library, whose versions differ in the last steps of a grey.
inline constexpr int channelStep = 24;
/// Five pixels in ten thousand, the edge of one letter: a text that moves by a pixel is more.
inline constexpr double tolerance = 0.0005;

}  // namespace corvane::sheet
