#include "engine/observers.h"

#include <cstddef>

namespace corvane {

std::shared_ptr<const void> Observers::add(Observer observer) {
  auto handle = std::make_shared<const Observer>(std::move(observer));
  observers.push_back(handle);
  return handle;
}

void Observers::notify(Field field) {
  ++notifying;
  // By index: an observer may add another one, which moves the list.
  for (std::size_t i = 0; i < observers.size(); ++i) {
    if (const auto observer = observers[i].lock()) (*observer)(field);
  }
  // Not while an outer call walks the list.
  if (--notifying == 0) {
    std::erase_if(observers, [](const auto& known) { return known.expired(); });
  }
}

}  // namespace corvane
