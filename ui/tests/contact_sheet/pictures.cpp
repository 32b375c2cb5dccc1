#include "pictures.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
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
    if (scene.cents) hear(*scene.cents);
  }

  TunerModel& tuner() { return model; }

 private:
  void hear(double cents) {
    const auto& strings = engine->tuning().strings;
    const std::int64_t midi = strings.empty() ? 70 : strings[strings.size() / 2].midi;
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
    qml.setInitialProperties({{"tuner", QVariant::fromValue(&stage.tuner())}});
    qml.load(QUrl("qrc:/qt/qml/Corvane/Main.qml"));
    screen = qobject_cast<QQuickWindow*>(qml.rootObjects().value(0));
    require(screen != nullptr, "the program carries its own screen");
    const int menuBar = screen->minimumHeight() - 680;
    screen->resize(scene.area + QSize(0, menuBar));
    screen->show();
    // Where there is nothing to hover over: at the empty end of the menu bar.
    QCursor::setPos(screen->mapToGlobal(QPoint(screen->width() - 1, 0)));
  }

  QQuickWindow& window() { return *screen; }

 private:
  Stage stage;
  QQmlApplicationEngine qml;
  QQuickWindow* screen = nullptr;
};

bool isText(const QQuickItem& item) {
  return item.inherits("QQuickText") || item.inherits("corvane::FixedDigits");
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
  std::vector<TextSeen> texts;
  std::vector<QQuickItem*> items;
  for (QQuickItem* item : visibleBelow(*shown.window().contentItem())) {
    const QString text = item->property("text").toString();
    if (!isText(*item) || text.isEmpty()) continue;
    QColor ink = item->property("color").value<QColor>();
    ink.setAlphaF(ink.alphaF() * static_cast<float>(item->opacity()));
    texts.push_back({text, ink, {}});
    items.push_back(item);
  }
  for (QQuickItem* item : items) item->setOpacity(0.0);
  const QImage ground = atRest(shown.window());
  for (std::size_t i = 0; i < items.size(); ++i) {
    texts[i].ground =
        ground.pixelColor(items[i]->mapToScene(items[i]->boundingRect().center()).toPoint());
  }
  return texts;
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
