#include "pictures.h"

#include <QCoreApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QPainter>
#include <QQmlApplicationEngine>
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
  Stage stage(scene);
  QQmlApplicationEngine qml;
  qml.setInitialProperties({{"tuner", QVariant::fromValue(&stage.tuner())}});
  qml.load(QUrl("qrc:/qt/qml/Corvane/Main.qml"));
  auto* window = qobject_cast<QQuickWindow*>(qml.rootObjects().value(0));
  require(window != nullptr, "the program carries its own screen");
  const int menuBar = window->minimumHeight() - 680;
  window->resize(scene.area + QSize(0, menuBar));
  window->show();
  // Where there is nothing to hover over: at the empty end of the menu bar.
  QCursor::setPos(window->mapToGlobal(QPoint(window->width() - 1, 0)));
  return atRest(*window).convertToFormat(QImage::Format_RGB32);
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

double difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return 1.0;
  qsizetype far = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) far += isFar(a.pixel(x, y), b.pixel(x, y)) ? 1 : 0;
  }
  return static_cast<double>(far) / (static_cast<double>(a.width()) * a.height());
}

}  // namespace corvane::sheet
