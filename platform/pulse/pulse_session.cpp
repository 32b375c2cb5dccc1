// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_session.h"

#include <pulse/error.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>

#include <memory>
#include <utility>

namespace corvane {
namespace {

constexpr const char* desktopId = "org.corvane.Corvane";

/// Mixers show these properties.
pa_context* newContext(pa_mainloop_api& api) {
  const std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)> properties(pa_proplist_new(),
                                                                             pa_proplist_free);
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Corvane");
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ID, desktopId);
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, desktopId);
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_VERSION, CORVANE_VERSION);
  return pa_context_new_with_proplist(&api, "Corvane", properties.get());
}

}  // namespace

PulseSession::PulseSession(pa_mainloop_api& api, Timers& timers, Observer watching)
    : loopTimers(timers),
      observer(std::move(watching)),
      context(newContext(api)),
      deadline(timers),
      again(timers) {
  deadline.arm(serverTimeout, [this] { end(PA_ERR_TIMEOUT); });
  connect();
}

PulseSession::~PulseSession() {
  over = true;
  if (context == nullptr) return;
  pa_context_set_state_callback(context, nullptr, nullptr);
  pa_context_set_subscribe_callback(context, nullptr, nullptr);
  pa_context_disconnect(context);
  pa_context_unref(context);
}

pa_context* PulseSession::readyContext() const {
  return !over && pa_context_get_state(context) == PA_CONTEXT_READY ? context : nullptr;
}

void PulseSession::connect() {
  if (context == nullptr) return end(PA_ERR_INTERNAL);
  pa_context_set_state_callback(context, onState, this);
  pa_context_set_subscribe_callback(context, onEvent, this);
  // The desktop starts the server: two servers started at once would compete for the device.
  if (pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
    end(pa_context_errno(context));
  }
}

void PulseSession::contextChanged() {
  switch (pa_context_get_state(context)) {
    case PA_CONTEXT_READY:
      watch();
      survey();
      break;
    case PA_CONTEXT_FAILED:
      end(pa_context_errno(context));
      break;
    case PA_CONTEXT_TERMINATED:
      end(PA_ERR_CONNECTIONTERMINATED);
      break;
    default:
      break;
  }
}

void PulseSession::watch() {
  constexpr auto changes = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SOURCE |
                                                               PA_SUBSCRIPTION_MASK_SERVER);
  await(pa_context_subscribe(context, changes, nullptr, nullptr));
}

void PulseSession::survey() {
  if (over) return;
  // Dragging a volume slider sends hundreds of events; one more survey covers them all.
  outdated = std::exchange(surveying, true);
  if (outdated) return;
  again.disarm();
  await(pa_context_get_server_info(context, onServer, this));
}

void PulseSession::report(const ServerFacts& facts) {
  if (over) return;
  deadline.disarm();
  surveying = false;
  if (facts != reported) observer.facts(facts);
  reported = facts;
  if (outdated) return survey();
  // PipeWire chooses the default after it has reported the device, sometimes without an event, and
  // never if no session manager runs.
  if (!answers->isConclusive()) again.arm(surveyBackoff.next(), [this] { survey(); });
}

/// Without an operation the callback will not be called.
void PulseSession::await(pa_operation* operation) {
  if (operation == nullptr) return end(pa_context_errno(context));
  pa_operation_unref(operation);
}

void PulseSession::end(int error) {
  if (std::exchange(over, true)) return;
  deadline.disarm();
  again.disarm();
  observer.ended(error);
}

void PulseSession::onState(pa_context*, void* session) {
  static_cast<PulseSession*>(session)->contextChanged();
}

void PulseSession::onEvent(pa_context*, pa_subscription_event_type_t, std::uint32_t,
                           void* session) {
  auto* const self = static_cast<PulseSession*>(session);
  self->surveyBackoff.reset();
  self->survey();
}

void PulseSession::onServer(pa_context* context, const pa_server_info* server, void* session) {
  auto* const self = static_cast<PulseSession*>(session);
  if (server == nullptr) return self->end(pa_context_errno(context));
  self->answers.emplace(*server);
  self->await(pa_context_get_source_info_list(context, onSource, session));
}

void PulseSession::onSource(pa_context* context, const pa_source_info* source, int last,
                            void* session) {
  auto* const self = static_cast<PulseSession*>(session);
  if (last < 0) return self->end(pa_context_errno(context));
  if (source != nullptr) return self->answers->add(*source);
  self->report(self->answers->facts());
}

}  // namespace corvane
