// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/failing_calls.h"

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/proplist.h>
#include <pulse/stream.h>
#include <pulse/subscribe.h>

#include <limits>
#include <mutex>

namespace corvane::failing_calls {
namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

std::mutex lock;
std::string only;  // empty for every function
std::size_t calls = 0;
std::size_t first = never;
Lasting lasts = Lasting::once;
std::string name;

}  // namespace

static void armAny(const std::string& function, std::size_t nth, Lasting lasting) {
  const std::lock_guard held(lock);
  only = function;
  calls = 0;
  first = nth;
  lasts = lasting;
  name.clear();
}

void arm(std::size_t nth, Lasting lasting) {
  armAny("", nth, lasting);
}

void arm(const std::string& function, Lasting lasting) {
  armAny(function, 1, lasting);
}

void heal() {
  const std::lock_guard held(lock);
  first = never;
}

std::string failed() {
  const std::lock_guard held(lock);
  return name;
}

static bool fails(const char* function) {
  const std::lock_guard held(lock);
  if (!only.empty() && only != function) return false;
  ++calls;
  if (calls < first || (calls > first && lasts == Lasting::once)) return false;
  if (name.empty()) name = function;
  return true;
}

}  // namespace corvane::failing_calls

/// `--wrap` links the adapter's calls to __wrap_ and this file's calls to the real function.
#define CORVANE_WRAP(Result, function, parameters, arguments, failure) \
  extern "C" Result __real_##function parameters;                      \
  extern "C" Result __wrap_##function parameters {                     \
    if (corvane::failing_calls::fails(#function)) return failure;      \
    return __real_##function arguments;                                \
  }                                                                    \
  static_assert(true)

// On failure the map is at least initialised.
CORVANE_WRAP(pa_channel_map*, pa_channel_map_init_extend,
             (pa_channel_map * map, unsigned channels, pa_channel_map_def_t order),
             (map, channels, order), (pa_channel_map_init(map), nullptr));
CORVANE_WRAP(int, pa_proplist_sets, (pa_proplist * list, const char* key, const char* value),
             (list, key, value), -1);
CORVANE_WRAP(const char*, pa_proplist_gets, (const pa_proplist* list, const char* key), (list, key),
             nullptr);

CORVANE_WRAP(pa_context*, pa_context_new_with_proplist,
             (pa_mainloop_api * api, const char* title, const pa_proplist* list),
             (api, title, list), nullptr);
CORVANE_WRAP(int, pa_context_connect,
             (pa_context * context, const char* server, pa_context_flags_t flags,
              const pa_spawn_api* spawn),
             (context, server, flags, spawn), -PA_ERR_CONNECTIONREFUSED);
CORVANE_WRAP(pa_operation*, pa_context_subscribe,
             (pa_context * context, pa_subscription_mask_t mask, pa_context_success_cb_t done,
              void* data),
             (context, mask, done, data), nullptr);
CORVANE_WRAP(pa_operation*, pa_context_get_server_info,
             (pa_context * context, pa_server_info_cb_t answer, void* data),
             (context, answer, data), nullptr);
CORVANE_WRAP(pa_operation*, pa_context_get_source_info_list,
             (pa_context * context, pa_source_info_cb_t answer, void* data),
             (context, answer, data), nullptr);

CORVANE_WRAP(pa_stream*, pa_stream_new_with_proplist,
             (pa_context * context, const char* title, const pa_sample_spec* spec,
              const pa_channel_map* map, pa_proplist* list),
             (context, title, spec, map, list), nullptr);
CORVANE_WRAP(int, pa_stream_connect_record,
             (pa_stream * stream, const char* device, const pa_buffer_attr* buffering,
              pa_stream_flags_t flags),
             (stream, device, buffering, flags), -PA_ERR_INVALID);
CORVANE_WRAP(int, pa_stream_connect_playback,
             (pa_stream * stream, const char* device, const pa_buffer_attr* buffering,
              pa_stream_flags_t flags, const pa_cvolume* volume, pa_stream* together),
             (stream, device, buffering, flags, volume, together), -PA_ERR_INVALID);
CORVANE_WRAP(int, pa_stream_peek, (pa_stream * stream, const void** data, std::size_t* bytes),
             (stream, data, bytes), -PA_ERR_BADSTATE);
CORVANE_WRAP(int, pa_stream_drop, (pa_stream * stream), (stream), -PA_ERR_BADSTATE);
CORVANE_WRAP(int, pa_stream_write,
             (pa_stream * stream, const void* data, std::size_t bytes, pa_free_cb_t release,
              std::int64_t offset, pa_seek_mode_t seek),
             (stream, data, bytes, release, offset, seek), -PA_ERR_INVALID);
CORVANE_WRAP(pa_operation*, pa_stream_drain,
             (pa_stream * stream, pa_stream_success_cb_t done, void* data), (stream, done, data),
             nullptr);
CORVANE_WRAP(int, pa_stream_disconnect, (pa_stream * stream), (stream), -PA_ERR_BADSTATE);
