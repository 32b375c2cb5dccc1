#include "pictures.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QFont>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/require.h"
#include "engine/apply_sink.h"
#include "engine/equal_temperament.h"
#include "tests/support/fake_platform.h"
#include "ui/tuner_model.h"

namespace corvane::sheet {
namespace {

/// The tuner in the state of a scene.
class Stage {
 public:
  explicit Stage(const Scene& scene) {
    engine->setInstrument(scene.instrument);
    engine->setTuningID(scene.tuning);
    if (scene.prompt) world.input->input = {};
    engine->start();
    if (scene.locked) engine->setLockedStringIndex(*scene.locked);
    if (scene.cents) hear(*scene.cents);
  }

  TunerModel& tuner() { return model; }

 private:
  void hear(double cents) {
    const auto& strings = engine->tuning().strings;
    const auto middle = static_cast<std::int64_t>(strings.size() / 2);
    const auto string = static_cast<std::size_t>(engine->lockedStringIndex().value_or(middle));
    const std::int64_t midi = strings.empty() ? 70 : strings[string].midi;
    const double frequency = targetFrequency(midi, engine->a4()) * std::exp2(cents / 1200.0);
    ApplySink(engine, world.mainQueue).deliver(PitchDetector::Reading{frequency, 0.99, 0.05F});
    world.mainQueue->runAll();
  }

  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  TunerModel model{engine, world.permission, world.urlOpener};
};

/// The window in the state of a scene.
class Shown {
 public:
  explicit Shown(const Scene& scene) : stage(scene) {
    if (scene.textZoom > 1.0) drawAsEnlarged();
    qml.setInitialProperties(
        {{"tuner", QVariant::fromValue(&stage.tuner())}, {"textZoom", scene.textZoom}});
    qml.load(QUrl("qrc:/qt/qml/Corvane/Main.qml"));
    screen = qobject_cast<QQuickWindow*>(qml.rootObjects().value(0));
    require(screen != nullptr, "the program carries its own screen");
    const int menuBar = screen->minimumHeight() - 680;
    screen->resize((scene.area + QSize(0, menuBar)) * scene.textZoom);
    screen->show();
    // Where there is nothing to hover over: at the empty end of the menu bar.
    QCursor::setPos(screen->mapToGlobal(QPoint(screen->width() - 1, 0)));
    if (!scene.keys.empty()) waitForKeyboard();
    for (const int key : scene.keys) press(key);
  }

  ~Shown() { QGuiApplication::setFont(font); }

  QQuickWindow& window() { return *screen; }

 private:
  /// As the program does it.
  void drawAsEnlarged() {
    QFont unfitted = font;
    unfitted.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(unfitted);
  }

  void waitForKeyboard() {
    screen->requestActivate();
    QElapsedTimer waiting;
    waiting.start();
    while (!screen->isActive() && waiting.elapsed() < 10000) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    require(screen->isActive(), "the window gets the keyboard");
  }

  void press(int key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier);
      QCoreApplication::sendEvent(screen, &event);
      QCoreApplication::processEvents();
    }
  }

  const QFont font = QGuiApplication::font();
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

/// By more than the rounding of a layout.
bool isLargerThanItsRoom(const QQuickItem& text) {
  const QVariant width = text.property("contentWidth");
  const QVariant height = text.property("contentHeight");
  return (width.isValid() ? width.toDouble() : text.implicitWidth()) > text.width() + 0.5 ||
         (height.isValid() ? height.toDouble() : text.implicitHeight()) > text.height() + 0.5;
}

/// What is to be looked at: the list that is open, else all of the window.
std::vector<QQuickItem*> itemsInFront(QQuickWindow& window) {
  const auto all = visibleBelow(*window.contentItem());
  const auto list = std::ranges::find_if(all, [](const QQuickItem* item) {
    return QLatin1String(item->metaObject()->className()).startsWith(QLatin1String("MenuList_"));
  });
  return list == all.end() ? all : visibleBelow(**list);
}

QColor withOpacityOf(const QQuickItem& item, const char* property) {
  QColor ink = item.property(property).value<QColor>();
  ink.setAlphaF(ink.alphaF() * static_cast<float>(item.opacity()));
  return ink;
}

/// The color of the middle of a pixel's square, `x` and `y` of which are inside `item`.
QColor colorAt(const QImage& picture, const QQuickItem& item, double x, double y) {
  const QPointF place = item.mapToScene(QPointF(x, y)) * picture.devicePixelRatio();
  return picture.pixelColor(static_cast<int>(std::floor(place.x())),
                            static_cast<int>(std::floor(place.y())));
}

/// The picture that no longer changes.
QImage atRest(QQuickWindow& window) {
  QElapsedTimer sinceChange;
  sinceChange.start();
  QImage last = window.grabWindow();
  while (sinceChange.elapsed() < 200) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    const QImage next = window.grabWindow();
    if (next != last) sinceChange.restart();
    last = next;
  }
  return last;
}

bool isFar(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) > channelStep ||
         std::abs(qGreen(a) - qGreen(b)) > channelStep ||
         std::abs(qBlue(a) - qBlue(b)) > channelStep;
}

}  // namespace

QImage picture(const Scene& scene) {
  Shown shown(scene);
  return atRest(shown.window()).convertToFormat(QImage::Format_RGB32);
}

std::vector<TextSeen> textsOf(const Scene& scene) {
  Shown shown(scene);
  atRest(shown.window());
  std::vector<TextSeen> texts;
  std::vector<QQuickItem*> items;
  for (QQuickItem* item : itemsInFront(shown.window())) {
    const QString text = item->property("text").toString();
    if (!isText(*item) || text.isEmpty()) continue;
    texts.push_back({text, withOpacityOf(*item, "color"), {}});
    items.push_back(item);
  }
  for (QQuickItem* item : items) item->setOpacity(0.0);
  const QImage ground = atRest(shown.window());
  for (std::size_t i = 0; i < items.size(); ++i) {
    texts[i].ground = colorAt(ground, *items[i], items[i]->width() / 2, items[i]->height() / 2);
  }
  return texts;
}

std::vector<MarkSeen> marksOf(const Scene& scene) {
  Shown shown(scene);
  atRest(shown.window());
  auto items = itemsInFront(shown.window());
  for (QQuickItem* item : items) {
    if (isText(*item)) item->setOpacity(0.0);
  }
  std::vector<MarkSeen> marks;
  // From the front to the back, so that nothing hides what a mark stands on.
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

QImage contactSheet(const std::vector<Scene>& all) {
  constexpr int columns = 8;
  constexpr QSize cell(300, 460);
  const int rows = (static_cast<int>(all.size()) + columns - 1) / columns;
  QImage sheet(columns * cell.width(), rows * cell.height(), QImage::Format_RGB32);
  sheet.fill(QColor(40, 40, 44));
  QPainter painter(&sheet);
  painter.setPen(Qt::white);
  for (std::size_t i = 0; i < all.size(); ++i) {
    const int at = static_cast<int>(i);
    const QPoint corner(at % columns * cell.width(), at / columns * cell.height());
    const QImage shown =
        picture(all[i]).scaled(cell - QSize(20, 40), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(corner + QPoint(10, 30), shown);
    painter.drawText(corner + QPoint(10, 20), all[i].name);
  }
  return sheet;
}

QImage scalesSheet(const QString& folder) {
  // From the upper edge of the string row to the play button, in points.
  constexpr QRectF part(18, 600, 444, 160);
  const QStringList scales = QDir(folder).entryList({"x*"}, QDir::Dirs, QDir::Name);
  std::vector<QImage> parts;
  int height = 0;
  for (const QString& scale : scales) {
    const double factor = scale.mid(1).toDouble();
    const QImage whole(folder + "/" + scale + "/guitar-480x860-flat.png");
    parts.push_back(whole.copy(QRectF(part.topLeft() * factor, part.size() * factor).toRect()));
    height += parts.back().height() + 30;
  }
  QImage sheet(static_cast<int>(part.width() * 3.0) + 20, height + 10, QImage::Format_RGB32);
  sheet.fill(QColor(40, 40, 44));
  QPainter painter(&sheet);
  painter.setPen(Qt::white);
  int y = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts[i].setDevicePixelRatio(1.0);
    painter.drawText(10, y + 22, scales[static_cast<qsizetype>(i)]);
    painter.drawImage(10, y + 30, parts[i]);
    y += parts[i].height() + 30;
  }
  return sheet;
}

double difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return 1.0;
  qsizetype far = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) far += isFar(a.pixel(x, y), b.pixel(x, y)) ? 1 : 0;
  }
  return static_cast<double>(far) / (static_cast<double>(a.width()) * a.height());
}

}  // namespace corvane::sheet
