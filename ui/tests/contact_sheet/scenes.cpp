// SPDX-License-Identifier: MIT
#include "scenes.h"

#include <Qt>
#include <array>

namespace corvane::sheet {
namespace {

struct Kind {
  const char* name;
  Instrument instrument;
  const char* tuning;
};

struct Heard {
  const char* name;
  double cents;
};

constexpr std::array<QSize, 4> areas = {QSize(420, 680), QSize(480, 860), QSize(700, 1000),
                                        QSize(2000, 1200)};
constexpr std::array<Kind, 4> kinds = {{{"guitar", Instrument::guitar, "g6-half"},
                                        {"eight", Instrument::guitar, "g8-standard"},
                                        {"bass", Instrument::bass, "b5-standard"},
                                        {"piano", Instrument::piano, "piano-chromatic"}}};
constexpr std::array<Heard, 3> heard = {{{"in-tune", 1.2}, {"flat", -23.4}, {"sharp", 8.7}}};

QString nameOf(const Kind& kind, const QSize& area, const char* state) {
  return QStringLiteral("%1-%2x%3-%4")
      .arg(QLatin1String(kind.name))
      .arg(area.width())
      .arg(area.height())
      .arg(QLatin1String(state));
}

}  // namespace

std::vector<Scene> scenes() {
  std::vector<Scene> all;
  std::size_t turn = 0;
  for (const Kind& kind : kinds) {
    for (const QSize& area : areas) {
      const Heard& state = heard[turn++ % heard.size()];
      all.push_back(
          {nameOf(kind, area, state.name), area, kind.instrument, kind.tuning, state.cents, false});
      all.push_back({nameOf(kind, area, "silent"), area, kind.instrument, kind.tuning, {}, true});
    }
  }
  for (const Scene& scene : particularScenes()) all.push_back(scene);
  return all;
}

std::vector<int> tabs(int presses) {
  return std::vector<int>(static_cast<std::size_t>(presses), Qt::Key_Tab);
}

std::vector<Scene> particularScenes() {
  constexpr QSize area(480, 860);
  const auto guitar = [](const char* name, QSize size) {
    return Scene{name, size, Instrument::guitar, "g6-standard", -23.4, false};
  };
  Scene locked = guitar("locked-chip", area);
  locked.locked = 1;
  Scene ringOnChip = guitar("ring-on-a-chip", area);
  ringOnChip.keys = tabs(9);  // past Help, instruments, switch, tuning and "Auto"
  Scene list = guitar("open-list", area);
  list.keys = tabs(6);
  list.keys.insert(list.keys.end(), {Qt::Key_Space, Qt::Key_Down, Qt::Key_Down});
  Scene large = guitar("text-at-200-percent", area);
  large.textZoom = 2.0;
  return {locked,
          ringOnChip,
          list,
          large,
          guitar("display-1280x720", QSize(1280, 692)),
          guitar("display-3840x2160", QSize(3840, 2132))};
}

std::vector<Scene> scenesOfWholeDisplays() {
  std::vector<Scene> few = particularScenes();
  std::erase_if(few, [](const Scene& scene) { return !scene.name.startsWith("display-"); });
  return few;
}

std::vector<Scene> screenshots() {
  constexpr QSize area(480, 860);
  return {{"guitar", area, Instrument::guitar, "g6-standard", 1.2, false},
          {"bass", area, Instrument::bass, "b5-standard", -23.4, false},
          {"piano", area, Instrument::piano, "piano-chromatic", 8.7, false}};
}

std::vector<Scene> scenesOfEveryScale() {
  std::vector<Scene> few = scenes();
  std::erase_if(few, [](const Scene& scene) {
    return scene.name != "guitar-480x860-flat" && scene.name != "eight-420x680-silent";
  });
  return few;
}

}  // namespace corvane::sheet
