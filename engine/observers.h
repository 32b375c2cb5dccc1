#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

/// What the engine publishes, in the order of its declarations.
enum class Field {
  instrument,
  tuningID,
  a4,
  leftHanded,
  lockedStringIndex,
  listening,
  micAllowed,
  heard,
  inTune,
  cents,
  frequency,
  noteLabel,
  octaveLabel,
  heardSpelling,
  signal,
  highlightedString,
  status,
  errorText,
  playingReference,
};

/// Those who are told of published fields. Main thread only.
class Observers {
 public:
  /// Called after each assignment to a field, also when the value stayed the same.
  using Observer = std::function<void(Field)>;

  /// `observer` is told for as long as the returned handle lives.
  [[nodiscard]] std::shared_ptr<const void> add(Observer observer);

  /// An observer may add observers, drop handles and assign fields while it is told.
  void notify(Field field);

 private:
  std::vector<std::weak_ptr<const Observer>> observers;
  int notifying = 0;  ///< how many calls of `notify` are under way, one within the other
};

/// A field that anyone may read and only `Owner` may assign; each assignment tells the observers.
template <class Owner, class T>
class Published {
 public:
  const T& operator()() const { return value; }

 private:
  friend Owner;

  Published(Observers& audience, Field name, T initial)
      : observers(audience), field(name), value(std::move(initial)) {}
  Published(const Published&) = delete;

  Published& operator=(T next) {
    value = std::move(next);
    observers.notify(field);
    return *this;
  }

  Observers& observers;
  Field field;
  T value;
};

}  // namespace corvane
