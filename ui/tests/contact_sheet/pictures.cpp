// SPDX-License-Identifier: MIT
#include "pictures.h"

#include <QAnimationDriver>
#include <QCoreApplication>
#include <QCursor>
#include <QFont>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/require.h"
#include "engine/equal_temperament.h"
#include "tests/support/eventually.h"
#include "ui/model/tuner_model.h"
#include "ui/tests/engine_on_fakes.h"

namespace corvane::sheet {
namespace {

/// The clock of all animations, which the tests advance.
class Arrival final : public QAnimationDriver {
 public:
  Arrival() { install(); }
  ~Arrival() override { uninstall(); }

  void complete() {
    QCoreApplication::processEvents();  // starts and ends animations
    while (isRunning()) {
      time += 1000;
      advance();
      QCoreApplication::processEvents();
    }
  }

  qint64 elapsed() const override { return time; }

 private:
  qint64 time = 0;  // ms
};

/// The tuner in the state of a scene.
class Stage : private EngineOnFakes {
 public:
  explicit Stage(const Scene& scene) {
    engine->setInstrument(scene.instrument);
    engine->setTuningID(scene.tuning);
    if (scene.prompt) world.input->input = {};
    engine->start();
    if (scene.locked) engine->setLockedStringIndex(*scene.locked);
    if (scene.cents) hear(PitchDetector::Reading{frequencyOff(*scene.cents), 0.99, 0.05F});
  }

  TunerModel& tuner() { return model; }

 private:
  /// The locked string's, or the middle one's.
  double frequencyOff(double cents) const {
    const auto& strings = engine->tuning().strings;
    const auto middle = static_cast<std::int64_t>(strings.size() / 2);
    const auto string =
        static_cast<std::size_t>(engine->state().lockedStringIndex.value_or(middle));
    const std::int64_t midi = strings.empty() ? 70 : strings[string].midi;
    return targetFrequency(midi, engine->state().a4) * std::exp2(cents / 1200.0);
  }

  TunerModel model{engine, world.urlOpener};
};

/// The window in the state of a scene.
class Shown {
 public:
  explicit Shown(const Scene& scene) : stage(scene) {
    if (scene.textZoom > 1.0) drawAsEnlarged();
    qml.setInitialProperties(
        {{"tuner", QVariant::fromValue(&stage.tuner())}, {"textZoom", scene.textZoom}});
    qml.addImportPath("qrc:/qt/qml");  // Qt 6.5 and later search it anyway.
    qml.load(QUrl("qrc:/qt/qml/Corvane/app/Main.qml"));
    screen = qobject_cast<QQuickWindow*>(qml.rootObjects().value(0));
    require(screen != nullptr, "the program carries its own screen");
    const int menuBar = screen->minimumHeight() - 680;
    screen->resize((scene.area + QSize(0, menuBar)) * scene.textZoom);
    screen->show();
    // At the empty end of the menu bar, where nothing reacts to hovering.
    QCursor::setPos(screen->mapToGlobal(QPoint(screen->width() - 1, 0)));
    if (!scene.keys.empty()) {
      screen->requestActivate();
      require(eventually([this] { return screen->isActive(); }), "the window gets the keyboard");
    }
    for (const int key : scene.keys) press(key);
  }

  ~Shown() { QGuiApplication::setFont(font); }

  QQuickWindow& window() { return *screen; }

  /// The picture after all animations.
  QImage atRest() {
    QImage last;
    QImage next = screen->grabWindow();
    while (next != last) {
      last = next;
      arrival.complete();
      next = screen->grabWindow();
    }
    return last;
  }

 private:
  /// As in the program.
  void drawAsEnlarged() {
    QFont unfitted = font;
    unfitted.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(unfitted);
  }

  void press(int key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier);
      QCoreApplication::sendEvent(screen, &event);
      QCoreApplication::processEvents();
    }
  }

  const QFont font = QGuiApplication::font();
  Arrival arrival;
  Stage stage;
  QQmlApplicationEngine qml;
  QQuickWindow* screen = nullptr;
};

bool isText(const QQuickItem& item) {
  return item.inherits("QQuickText") || item.inherits("corvane::FixedDigits");
}

bool isMark(const QQuickItem& item) {
  return item.inherits("corvane::ContinuousRectangle") || item.inherits("corvane::Symbol") ||
         item.inherits("QQuickRectangle");
}

std::vector<QQuickItem*> visibleBelow(const QQuickItem& item) {
  std::vector<QQuickItem*> found;
  for (QQuickItem* child : item.childItems()) {
    if (!child->isVisible()) continue;
    found.push_back(child);
    const auto below = visibleBelow(*child);
    found.insert(found.end(), below.begin(), below.end());
  }
  return found;
}

/// By more than the layout's rounding.
bool isLargerThanItsRoom(const QQuickItem& text) {
  const QVariant width = text.property("contentWidth");
  const QVariant height = text.property("contentHeight");
  return (width.isValid() ? width.toDouble() : text.implicitWidth()) > text.width() + 0.5 ||
         (height.isValid() ? height.toDouble() : text.implicitHeight()) > text.height() + 0.5;
}

/// The open list, or else the whole window.
std::vector<QQuickItem*> itemsInFront(QQuickWindow& window) {
  const auto all = visibleBelow(*window.contentItem());
  const auto list = std::ranges::find_if(all, [](const QQuickItem* item) {
    return QLatin1String(item->metaObject()->className()).startsWith(QLatin1String("MenuList_"));
  });
  if (list == all.end()) return all;
  // Includes rows outside the visible part.
  auto rows = visibleBelow(**list);
  std::erase_if(rows, [view = (*list)->boundingRect(), list](const QQuickItem* item) {
    return !view.contains(item->mapRectToItem(*list, item->boundingRect()));
  });
  return rows;
}

QColor withOpacityOf(const QQuickItem& item, const char* property) {
  QColor ink = item.property(property).value<QColor>();
  ink.setAlphaF(ink.alphaF() * static_cast<float>(item.opacity()));
  return ink;
}

/// The color of the pixel at `x` and `y` of `item`.
QColor colorAt(const QImage& picture, const QQuickItem& item, double x, double y) {
  const QPointF place = item.mapToScene(QPointF(x, y)) * picture.devicePixelRatio();
  return picture.pixelColor(static_cast<int>(std::floor(place.x())),
                            static_cast<int>(std::floor(place.y())));
}

/// The largest difference of a channel.
int distance(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b))});
}

}  // namespace

QImage picture(const Scene& scene) {
  Shown shown(scene);
  return shown.atRest().convertToFormat(QImage::Format_RGB32);
}

std::vector<TextSeen> textsOf(const Scene& scene) {
  Shown shown(scene);
  shown.atRest();
  std::vector<TextSeen> texts;
  std::vector<QQuickItem*> items;
  for (QQuickItem* item : itemsInFront(shown.window())) {
    const QString text = item->property("text").toString();
    if (!isText(*item) || text.isEmpty()) continue;
    texts.push_back({text, withOpacityOf(*item, "color"), {}});
    items.push_back(item);
  }
  for (QQuickItem* item : items) item->setOpacity(0.0);
  const QImage ground = shown.atRest();
  for (std::size_t i = 0; i < items.size(); ++i) {
    texts[i].ground = colorAt(ground, *items[i], items[i]->width() / 2, items[i]->height() / 2);
  }
  return texts;
}

std::vector<MarkSeen> marksOf(const Scene& scene) {
  Shown shown(scene);
  shown.atRest();
  auto items = itemsInFront(shown.window());
  for (QQuickItem* item : items) {
    if (isText(*item)) item->setOpacity(0.0);
  }
  std::vector<MarkSeen> marks;
  // From front to back, so that nothing hides the background of a mark.
  std::ranges::reverse(items);
  for (QQuickItem* item : items) {
    if (!isMark(*item) || item->width() < 1.0 || item->height() < 1.0) continue;
    const QColor fill = withOpacityOf(*item, "color");
    const QColor outline = withOpacityOf(*item, "borderColor");
    const double width = item->property("borderWidth").toDouble();
    item->setOpacity(0.0);
    const QImage ground = shown.window().grabWindow();
    const QString name = item->metaObject()->className();
    if (fill.alpha() > 0) {
      marks.push_back({name, fill, colorAt(ground, *item, item->width() / 2, item->height() / 2)});
    }
    if (width > 0.0 && outline.alpha() > 0) {
      marks.push_back({name, outline, colorAt(ground, *item, width / 2, item->height() / 2)});
    }
  }
  return marks;
}

std::vector<QString> cutTextsOf(const Scene& scene) {
  Shown shown(scene);
  shown.window().grabWindow();  // lays out
  const QRectF room(QPointF(), QSizeF(shown.window().size()));
  std::vector<QString> cut;
  for (const QQuickItem* item : itemsInFront(shown.window())) {
    if (!isText(*item)) continue;
    if (isLargerThanItsRoom(*item) || item->property("truncated").toBool() ||
        !room.contains(item->mapRectToScene(item->boundingRect()))) {
      cut.push_back(item->property("text").toString());
    }
  }
  return cut;
}

int differentPixels(const QImage& a, const QImage& b) {
  if (a == b) return 0;
  if (a.size() != b.size()) return std::max(a.width() * a.height(), b.width() * b.height());
  constexpr int edge = 24;
  constexpr int stroke = 72;
  constexpr int edges = 32;
  int different = 0;
  int most = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const int far = distance(a.pixel(x, y), b.pixel(x, y));
      different += far >= edge ? 1 : 0;
      most = std::max(most, far);
    }
  }
  return most < stroke && different <= edges ? 0 : different;
}

}  // namespace corvane::sheet
