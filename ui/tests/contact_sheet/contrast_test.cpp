// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "pictures.h"

namespace corvane::sheet {
namespace {

constexpr double leastOfText = 4.5;      // WCAG 2.1, 1.4.3
constexpr double leastOfGraphics = 3.0;  // 1.4.11

/// WCAG 2.1, "relative luminance".
double linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.red() / 255.0) + 0.7152 * linear(color.green() / 255.0) +
         0.0722 * linear(color.blue() / 255.0);
}

/// The contrast ratio of WCAG 2.1, from 1 to 21, of two opaque colours.
double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

/// The visible colour of `ink` on `ground`.
QColor over(const QColor& ink, const QColor& ground) {
  const auto mixed = [&](float (QColor::*channel)() const) {
    return (ink.*channel)() * ink.alphaF() + (ground.*channel)() * (1.0F - ink.alphaF());
  };
  return QColor::fromRgbF(mixed(&QColor::redF), mixed(&QColor::greenF), mixed(&QColor::blueF));
}

/// One step of 8 bits for each layer.
bool isNear(const QColor& one, const QColor& other) {
  return std::abs(one.red() - other.red()) <= 2 && std::abs(one.green() - other.green()) <= 2 &&
         std::abs(one.blue() - other.blue()) <= 2;
}

/// A row of a table in the document.
struct Pair {
  QString what;
  QColor ink;
  QColor ground;
  QString ratio;
  bool isBelow;
  bool isSeen = false;
};

/// The table that follows `title`.
std::vector<Pair> pairsUnder(const QString& title) {
  QFile file(CORVANE_ACCESSIBILITY);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll()).section(title, 1);
  std::vector<Pair> pairs;
  for (const QString& line : text.section("|---|\n", 1).section("\n\n", 0, 0).split('\n')) {
    const QStringList cells = line.split(" | ");
    pairs.push_back({cells.value(0).mid(2), QColor(cells.value(1)), QColor(cells.value(2)),
                     cells.value(3), line.contains("**below**")});
  }
  return pairs;
}

class Contrast : public testing::Test {
 protected:
  /// Every verdict, and every state of the controls.
  static std::vector<Scene> looks() {
    std::vector<Scene> found = scenes();
    std::erase_if(found, [](const Scene& scene) {
      return scene.area != QSize(480, 860) || scene.textZoom != 1.0;
    });
    // With the focus on Help, on the picker, on the switch turned on, on the tuning with its list
    // open, and on the stepper at the end of its range.
    const auto addWithKeys = [&](int presses, int times, int key) {
      found.push_back(particularScenes().front());
      found.back().keys = tabs(presses);
      found.back().keys.insert(found.back().keys.end(), static_cast<std::size_t>(times), key);
    };
    addWithKeys(1, 0, 0);
    addWithKeys(2, 0, 0);
    addWithKeys(5, 1, Qt::Key_Space);
    addWithKeys(6, 0, 0);
    addWithKeys(6, 1, Qt::Key_Space);
    addWithKeys(15, 12, Qt::Key_PageUp);
    return found;
  }

  /// Marks the row of what is visible; there must be one.
  template <class Seen>
  static void find(std::vector<Pair>& known, const Seen& seen, const QString& name,
                   const Scene& scene) {
    const QColor ink = over(seen.ink, seen.ground);
    bool isKnown = false;
    for (Pair& pair : known) {
      if (!isNear(pair.ink, ink) || !isNear(pair.ground, seen.ground)) continue;
      isKnown = pair.isSeen = true;
    }
    EXPECT_TRUE(isKnown) << name.toStdString() << " in " << ink.name().toStdString() << " on "
                         << seen.ground.name().toStdString() << ", " << scene.name.toStdString();
  }

  static std::vector<std::string> unseen(const std::vector<Pair>& known) {
    std::vector<std::string> names;
    for (const Pair& pair : known) {
      if (!pair.isSeen) names.push_back(pair.what.toStdString());
    }
    return names;
  }

  std::vector<Pair> texts = pairsUnder("\nTexts:\n");
  std::vector<Pair> marks = pairsUnder("\nMarks:\n");
};

TEST_F(Contrast, IsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21.0);
  EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::white), 1.0);
  // The lightest grey that passes on white in the guidelines' examples.
  EXPECT_NEAR(contrast(QColor("#767676"), Qt::white), 4.54, 0.005);
}

TEST_F(Contrast, IsComputedInTheDocument) {
  for (const auto& [pairs, least] : {std::pair(texts, leastOfText), {marks, leastOfGraphics}}) {
    ASSERT_GT(pairs.size(), 20U);
    for (const Pair& pair : pairs) {
      const double ratio = contrast(pair.ink, pair.ground);
      EXPECT_EQ(pair.ratio, QString::number(ratio, 'f', 2)) << pair.what.toStdString();
      EXPECT_EQ(pair.isBelow, !(ratio >= least)) << pair.what.toStdString();
    }
  }
}

TEST_F(Contrast, IsEnoughForTextsAndVerdictsButTheOctaveOnGreen) {
  for (const Pair& pair : texts) EXPECT_EQ(pair.isBelow, pair.what == "its octave, in tune");
  for (const Pair& pair : marks) {
    if (!pair.what.contains(QRegularExpression("^(needle on its bar|focus|level)"))) continue;
    EXPECT_FALSE(pair.isBelow) << pair.what.toStdString();
  }
}

TEST_F(Contrast, IsInTheDocumentForAllTextsOnTheScreen) {
  for (const Scene& scene : looks()) {
    for (const TextSeen& text : textsOf(scene)) find(texts, text, text.text, scene);
  }
  EXPECT_THAT(unseen(texts), testing::IsEmpty());
}

TEST_F(Contrast, IsInTheDocumentForAllMarksOnTheScreen) {
  for (const Scene& scene : looks()) {
    for (const MarkSeen& mark : marksOf(scene)) find(marks, mark, mark.kind, scene);
  }
  // A mark is sampled in its middle or at its left edge, in a list inside it.
  EXPECT_THAT(unseen(marks),
              testing::ElementsAre("needle on the band: flat", "needle on the band: sharp",
                                   "outline of a menu"));
}

}  // namespace
}  // namespace corvane::sheet
