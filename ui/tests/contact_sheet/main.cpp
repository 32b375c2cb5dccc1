// SPDX-License-Identifier: MIT
// contact_sheet update SET FOLDER: writes a picture of each state.
// contact_sheet compare SET FOLDER SEEN: fails if a state differs from its picture in FOLDER or has
// none; writes what was drawn to SEEN.
// SET is "all", "scales" (for each QT_SCALE_FACTOR), "displays" (the smallest and the largest), or
// "screenshots" (for software centres).

#include <QDir>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QQuickWindow>
#include <cstdio>
#include <cstdlib>

#include "pictures.h"

namespace {

using namespace corvane::sheet;

QString fileIn(const QString& folder, const Scene& scene) {
  return folder + "/" + scene.name + ".png";
}

/// The picture for this minor version of Qt, if it draws a text of the scene differently.
QString goldenIn(const QString& folder, const Scene& scene) {
  const QString version = QString(qVersion()).section('.', 0, 1);
  const QString own = folder + "/" + scene.name + ".qt" + version + ".png";
  return QFile::exists(own) ? own : fileIn(folder, scene);
}

std::vector<Scene> scenesOf(const QString& set) {
  if (set == "scales") return scenesOfEveryScale();
  if (set == "displays") return scenesOfWholeDisplays();
  return set == "screenshots" ? screenshots() : scenes();
}

int update(const std::vector<Scene>& set, const QString& folder) {
  QDir().mkpath(folder);
  for (const Scene& scene : set) {
    if (!picture(scene).save(fileIn(folder, scene))) return 1;
  }
  return 0;
}

/// True if the scene equals its picture; prints the difference.
bool looksTheSame(const Scene& scene, const QString& golden, const QString& seen) {
  const QImage shown = picture(scene);
  const QImage expected = QImage(goldenIn(golden, scene)).convertToFormat(shown.format());
  const int different = differentPixels(shown, expected);
  if (different == 0) return true;
  shown.save(fileIn(seen, scene));
  std::printf("%s: %d of its pixels are not as in its picture; it is now %s\n",
              qPrintable(scene.name), different, qPrintable(fileIn(seen, scene)));
  return false;
}

int compare(const std::vector<Scene>& set, const QString& golden, const QString& seen) {
  QDir().mkpath(seen);
  int different = 0;
  for (const Scene& scene : set) different += looksTheSame(scene, golden, seen) ? 0 : 1;
  std::printf("%zu screens, %d different\n", set.size(), different);
  return different == 0 ? 0 : 1;
}

int run(const QStringList& arguments) {
  if (arguments.size() == 4 && arguments[1] == "update") {
    return update(scenesOf(arguments[2]), arguments[3]);
  }
  if (arguments.size() == 5 && arguments[1] == "compare") {
    return compare(scenesOf(arguments[2]), arguments[3], arguments[4]);
  }
  std::fputs("usage: contact_sheet update SET FOLDER | compare SET FOLDER SEEN\n", stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
  QGuiApplication app(argc, argv);
  QGuiApplication::setFont(QFont("DejaVu Sans"));
  const int status = run(QGuiApplication::arguments());
  // Qt 6.4 on Wayland can wait forever for its event thread when the application is destroyed.
  std::fflush(nullptr);
  std::_Exit(status);
}
