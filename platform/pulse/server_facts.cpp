// SPDX-License-Identifier: MIT
#include "platform/pulse/server_facts.h"

#include <string_view>

namespace corvane {
namespace {

/// True for a source that records the sound of a sink. Both servers make one the default if there
/// is no microphone.
bool isMonitor(const pa_source_info& source) {
  if (source.monitor_of_sink != PA_INVALID_INDEX) return true;
  const char* const deviceClass = pa_proplist_gets(source.proplist, PA_PROP_DEVICE_CLASS);
  return deviceClass != nullptr && std::string_view(deviceClass) == "monitor";
}

/// The detector does not work up to this rate, that of a headset in a call: record at a multiple.
constexpr double tooLowARate = 8000.0;

AudioFormat formatOf(const pa_sample_spec& spec) {
  if (!pa_sample_spec_valid(&spec)) return {};
  double rate = spec.rate;
  while (rate <= tooLowARate) rate *= 2.0;
  return {rate, spec.channels};
}

}  // namespace

bool operator==(const ServerFacts& a, const ServerFacts& b) {
  const bool sameOrder =
      a.deviceOrder.channels == b.deviceOrder.channels &&
      (a.deviceOrder.channels == 0 || pa_channel_map_equal(&a.deviceOrder, &b.deviceOrder) != 0);
  return sameOrder && a.loudspeakers == b.loudspeakers && a.device == b.device &&
         a.server == b.server;
}

ServerSurvey::ServerSurvey(const pa_server_info& server) {
  if (server.default_source_name != nullptr) defaultSource = server.default_source_name;
  collected.server = formatOf(server.sample_spec);
  collected.loudspeakers = server.default_sink_name != nullptr && *server.default_sink_name != '\0';
}

void ServerSurvey::add(const pa_source_info& source) {
  if (!isMonitor(source)) microphone = true;
  if (source.name != defaultSource) return;
  defaultSeen = true;
  collected.device = formatOf(source.sample_spec);
  collected.deviceOrder = source.channel_map;
}

bool ServerSurvey::isConclusive() const {
  return defaultSeen || !microphone;
}

ServerFacts ServerSurvey::facts() const {
  if (microphone) return collected;
  ServerFacts withoutMicrophone;
  withoutMicrophone.loudspeakers = collected.loudspeakers;
  return withoutMicrophone;
}

}  // namespace corvane
