// SPDX-License-Identifier: MIT
// The least that a tuner on the same libraries costs. It records with the tuner's fragment size,
// runs the tuner's detector on every block, and shows each reading in one frame of a window of the
// same size: two moving dots, a bar and three texts.

#include <pulse/pulseaudio.h>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <functional>
#include <thread>
#include <vector>

#include "pitch/pitch_capture.h"

namespace {

using namespace corvane;

constexpr const char* screen = R"(
import QtQuick

Window {
    property real hertz: 0
    property real loudness: 0
    readonly property real cents: hertz > 0 ? 1200 * Math.log2(hertz / 440) % 50 : 0

    title: "floor"
    visible: true
    width: 480
    height: 888
    color: "black"

    Text { y: 100; color: "white"; font.pixelSize: 90; text: hertz > 0 ? "A" : "-" }
    Text { y: 200; color: "white"; font.pixelSize: 26; text: cents.toFixed(1) }
    Text { y: 300; color: "white"; text: hertz.toFixed(2) + " Hz" }
    Rectangle { y: 400; x: 232 + 4 * cents; width: 16; height: 16; radius: 8 }
    Rectangle { y: 440; x: 232 + 4 * (cents % 10); width: 16; height: 16; radius: 8 }
    Rectangle { y: 480; width: 2400 * loudness; height: 6 }
}
)";

constexpr std::uint32_t rate = 48000;
constexpr std::size_t fragment = 2048, hop = 4096, length = 8192;
using Show = std::function<void(double hertz, float loudness)>;

class Recorder {
 public:
  explicit Recorder(Show shown) : show(std::move(shown)) {
    pa_context_set_state_callback(context, [](pa_context*, void* me) { self(me).connect(); }, this);
    pa_context_connect(context, nullptr, PA_CONTEXT_NOFLAGS, nullptr);
  }

  void run() { pa_mainloop_run(loop, nullptr); }

 private:
  static Recorder& self(void* me) { return *static_cast<Recorder*>(me); }

  void connect() {
    if (pa_context_get_state(context) != PA_CONTEXT_READY) return;
    const pa_sample_spec mono{PA_SAMPLE_FLOAT32NE, rate, 1};
    pa_buffer_attr buffering;
    std::fill_n(&buffering.maxlength, 5, static_cast<std::uint32_t>(-1));
    buffering.fragsize = fragment * sizeof(float);
    stream = pa_stream_new(context, "floor", &mono, nullptr);
    pa_stream_set_read_callback(
        stream, [](pa_stream*, std::size_t, void* me) { self(me).read(); }, this);
    pa_stream_connect_record(stream, nullptr, &buffering, PA_STREAM_ADJUST_LATENCY);
  }

  void read() {
    const void* data = nullptr;
    std::size_t bytes = 0;
    pa_stream_peek(stream, &data, &bytes);
    if (bytes == 0) return;
    const auto* const sound = static_cast<const float*>(data);
    if (sound != nullptr) block.insert(block.end(), sound, sound + bytes / sizeof(float));
    pa_stream_drop(stream);
    if (block.size() < length) return;
    const auto reading = detect({block.data(), length}, rate);
    block.erase(block.begin(), block.begin() + hop);
    if (reading || heard) show(reading ? reading->frequency : 0.0, reading ? reading->rms : 0.0F);
    heard = reading.has_value();
  }

  Show show;
  PitchCapture::Detect detect = PitchCapture::musicalPitchDetector();
  std::vector<float> block;
  bool heard = false;
  pa_mainloop* loop = pa_mainloop_new();
  pa_context* context = pa_context_new(pa_mainloop_get_api(loop), "floor");
  pa_stream* stream = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  // As the tuner does (ui/app/application.cpp).
  qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
  qputenv("QT_XCB_NO_MITSHM", "1");
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
  QGuiApplication app(argc, argv);
  QQmlApplicationEngine qml;
  qml.loadData(screen);
  QObject* const window = qml.rootObjects().at(0);
  Recorder recorder([window](double hertz, float loudness) {
    QMetaObject::invokeMethod(window, [=] {
      window->setProperty("hertz", hertz);
      window->setProperty("loudness", loudness);
    });
  });
  std::thread([&recorder] { recorder.run(); }).detach();
  return QGuiApplication::exec();
}
