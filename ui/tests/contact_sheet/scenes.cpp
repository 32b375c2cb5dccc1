#include "scenes.h"

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
  return all;
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
