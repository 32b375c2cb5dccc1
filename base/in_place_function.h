// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <new>
#include <type_traits>
#include <utility>

#include "base/require.h"

namespace corvane {

template <class Signature, std::size_t capacity>
class InPlaceFunction;

/// A std::function that stores its callable in place, so that the threads of the audio path can
/// create, copy and move one without allocating. A callable larger than `capacity` bytes does not
/// compile. Calling an empty one stops the program.
template <class Result, class... Arguments, std::size_t capacity>
class InPlaceFunction<Result(Arguments...), capacity> {
 public:
  InPlaceFunction() = default;
  InPlaceFunction(std::nullptr_t) {}

  template <class F>
    requires(!std::same_as<std::remove_cvref_t<F>, InPlaceFunction> &&
             std::is_invocable_r_v<Result, std::decay_t<F>&, Arguments...>)
  InPlaceFunction(F&& callable) {
    using Callable = std::decay_t<F>;
    static_assert(sizeof(Callable) <= capacity && alignof(Callable) <= alignof(double));
    static_assert(std::is_nothrow_move_constructible_v<Callable>);
    new (storage) Callable(std::forward<F>(callable));
    operations = &operationsOf<Callable>;
  }

  InPlaceFunction(const InPlaceFunction& other) : operations(other.operations) {
    if (operations != nullptr) operations->copy(storage, other.storage);
  }

  /// Leaves `other` empty.
  InPlaceFunction(InPlaceFunction&& other) noexcept
      : operations(std::exchange(other.operations, nullptr)) {
    if (operations != nullptr) operations->relocate(storage, other.storage);
  }

  InPlaceFunction& operator=(InPlaceFunction other) noexcept {
    // Destroyed last, because the destructor of a callable may use this function.
    InPlaceFunction previous(std::move(*this));
    operations = std::exchange(other.operations, nullptr);
    if (operations != nullptr) operations->relocate(storage, other.storage);
    return *this;
  }

  ~InPlaceFunction() {
    if (operations != nullptr) operations->destroy(storage);
  }

  explicit operator bool() const { return operations != nullptr; }

  Result operator()(Arguments... arguments) const {
    require(operations != nullptr, "callable is not empty");
    return operations->call(storage, std::forward<Arguments>(arguments)...);
  }

 private:
  struct Operations {
    Result (*call)(void*, Arguments&&...);
    void (*copy)(void* to, const void* from);
    void (*relocate)(void* to, void* from);
    void (*destroy)(void*);
  };

  template <class Callable>
  static constexpr Operations operationsOf = {
      [](void* held, Arguments&&... arguments) -> Result {
        return std::invoke(*static_cast<Callable*>(held), std::forward<Arguments>(arguments)...);
      },
      [](void* to, const void* from) { new (to) Callable(*static_cast<const Callable*>(from)); },
      [](void* to, void* from) {
        new (to) Callable(std::move(*static_cast<Callable*>(from)));
        static_cast<Callable*>(from)->~Callable();
      },
      [](void* held) { static_cast<Callable*>(held)->~Callable(); },
  };

  const Operations* operations = nullptr;
  alignas(double) mutable std::byte storage[capacity];
};

}  // namespace corvane
