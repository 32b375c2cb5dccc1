// SPDX-License-Identifier: MIT
// Replaces every form of the global operators: the standard library forwards to a few of them, but
// sanitizers do not.

#include "tests/support/allocation_count.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

constinit thread_local std::size_t count = 0;

constexpr std::align_val_t usual{__STDCPP_DEFAULT_NEW_ALIGNMENT__};

/// Exactly the requested size, so that AddressSanitizer detects overruns.
void* allocateOrNull(std::size_t size, std::align_val_t align = usual) noexcept {
  ++count;
  const std::size_t atLeastOne = std::max<std::size_t>(size, 1);
  if (align == usual) return std::malloc(atLeastOne);
  void* memory = nullptr;
  const int error = posix_memalign(&memory, static_cast<std::size_t>(align), atLeastOne);
  return error == 0 ? memory : nullptr;
}

void* allocate(std::size_t size, std::align_val_t align = usual) {
  if (void* const memory = allocateOrNull(size, align)) return memory;
  throw std::bad_alloc();
}

void release(void* memory) {
  if (memory != nullptr) ++count;
  std::free(memory);
}

}  // namespace

std::size_t corvane::allocationsOfThisThread() {
  return count;
}

#define CORVANE_NEW(form)                                                                         \
  void* operator form(std::size_t size) {                                                         \
    return allocate(size);                                                                        \
  }                                                                                               \
  void* operator form(std::size_t size, std::align_val_t align) {                                 \
    return allocate(size, align);                                                                 \
  }                                                                                               \
  void* operator form(std::size_t size, const std::nothrow_t&) noexcept {                         \
    return allocateOrNull(size);                                                                  \
  }                                                                                               \
  void* operator form(std::size_t size, std::align_val_t align, const std::nothrow_t&) noexcept { \
    return allocateOrNull(size, align);                                                           \
  }

#define CORVANE_DELETE(form, ...)                                        \
  void operator form(void* memory __VA_OPT__(, ) __VA_ARGS__) noexcept { \
    release(memory);                                                     \
  }

#define CORVANE_DELETES(form)                         \
  CORVANE_DELETE(form)                                \
  CORVANE_DELETE(form, std::size_t)                   \
  CORVANE_DELETE(form, std::align_val_t)              \
  CORVANE_DELETE(form, std::size_t, std::align_val_t) \
  CORVANE_DELETE(form, const std::nothrow_t&)         \
  CORVANE_DELETE(form, std::align_val_t, const std::nothrow_t&)

CORVANE_NEW(new)
CORVANE_NEW(new[])
CORVANE_DELETES(delete)
CORVANE_DELETES(delete[])
