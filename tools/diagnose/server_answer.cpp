// SPDX-License-Identifier: MIT
#include "tools/diagnose/server_answer.h"

#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>

#include <array>
#include <chrono>
#include <memory>

namespace corvane::diagnose {
namespace {

using std::chrono::steady_clock;

struct Question {
  ServerAnswer answer{.server = "none: no answer"};
  bool over = false;
};

void await(pa_operation* operation, Question& question) {
  if (operation == nullptr) {
    question.over = true;
  } else {
    pa_operation_unref(operation);
  }
}

std::string describe(const pa_source_info& source) {
  std::array<char, PA_SAMPLE_SPEC_SNPRINT_MAX> format{};
  pa_sample_spec_snprint(format.data(), format.size(), &source.sample_spec);
  std::array<char, PA_CVOLUME_SNPRINT_MAX> volume{};
  pa_cvolume_snprint(volume.data(), volume.size(), &source.volume);
  return std::string(source.name) + ", " + format.data() + ", volume " + volume.data() +
         (source.mute != 0 ? ", muted" : "") +
         (source.monitor_of_sink != PA_INVALID_INDEX ? ", a monitor" : "");
}

void onSource(pa_context*, const pa_source_info* source, int last, void* data) {
  auto& question = *static_cast<Question*>(data);
  if (last == 0) question.answer.input = describe(*source);
  question.over = last != 0;
}

void onServer(pa_context* context, const pa_server_info* server, void* data) {
  auto& question = *static_cast<Question*>(data);
  if (server == nullptr) {
    question.over = true;
    return;
  }
  question.answer.server = std::string(server->server_name) + ' ' + server->server_version;
  await(pa_context_get_source_info_by_name(context, "@DEFAULT_SOURCE@", onSource, data), question);
}

void onState(pa_context* context, void* data) {
  auto& question = *static_cast<Question*>(data);
  const pa_context_state_t state = pa_context_get_state(context);
  if (state == PA_CONTEXT_READY) {
    await(pa_context_get_server_info(context, onServer, data), question);
  } else if (!PA_CONTEXT_IS_GOOD(state)) {
    question.answer.server = std::string("none: ") + pa_strerror(pa_context_errno(context));
    question.over = true;
  }
}

void hangUp(pa_context* context) {
  pa_context_set_state_callback(context, nullptr, nullptr);
  pa_context_disconnect(context);
  pa_context_unref(context);
}

}  // namespace

ServerAnswer askServer() {
  Question question;
  const std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> loop(pa_mainloop_new(),
                                                                       pa_mainloop_free);
  if (loop == nullptr) return question.answer;
  const std::unique_ptr<pa_context, decltype(&hangUp)> context(
      pa_context_new(pa_mainloop_get_api(loop.get()), "corvane-diagnose"), hangUp);
  if (context == nullptr) return question.answer;
  pa_context_set_state_callback(context.get(), onState, &question);
  // The callback reports a failure. Without a server, none is started.
  pa_context_connect(context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
  const auto end = steady_clock::now() + std::chrono::seconds(5);
  while (!question.over && steady_clock::now() < end) {
    constexpr int microseconds = 100'000;
    pa_mainloop_prepare(loop.get(), microseconds);
    pa_mainloop_poll(loop.get());
    pa_mainloop_dispatch(loop.get());
  }
  return question.answer;
}

}  // namespace corvane::diagnose
