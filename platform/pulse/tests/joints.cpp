#include "platform/pulse/tests/joints.h"

namespace corvane {
namespace {

std::string text(const CodedFrame& frame) {
  return "frame " + std::to_string(frame.number) + " of room " + std::to_string(frame.room);
}

}  // namespace

std::string Joints::in(const RecordedBuffer& buffer) {
  if (buffer.afterGap) *this = {};
  std::string found = formatFault(buffer);
  begun = true;
  sampleRate = buffer.sampleRate;
  channels = buffer.channels.size();
  for (const CodedFrame& frame : buffer.codedFrames()) {
    if (found.empty()) found = fault(frame);
    take(frame);
  }
  return found;
}

std::string Joints::formatFault(const RecordedBuffer& buffer) const {
  if (!begun || (buffer.sampleRate == sampleRate && buffer.channels.size() == channels)) return {};
  return "one format follows another";
}

std::string Joints::fault(const CodedFrame& frame) const {
  const CodedFrame& last = heard.frame;
  if (frame.isSilence() || last.isSilence()) return {};
  const bool waited = frame.number == frameAfter(last.number);
  const bool wentOn = frame.number == frameAfter(last.number, heard.silence + 1);
  if (frame.room == last.room && (waited || wentOn)) return {};
  return text(frame) + " follows " + text(last) + " after " + std::to_string(heard.silence) +
         " of silence, " + std::to_string(position) + " frames into the stretch";
}

void Joints::take(const CodedFrame& frame) {
  ++position;
  if (!frame.isSilence()) {
    heard = {frame};
  } else {
    ++heard.silence;
  }
}

}  // namespace corvane
