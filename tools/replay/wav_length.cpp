// SPDX-License-Identifier: MIT
#include "tools/replay/wav_length.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane::replay {
namespace {

constexpr std::uint32_t openLength = 0xFFFFFFFF;

struct ChunkHeader {
  std::array<char, 4> id;
  std::uint32_t length;

  std::string_view name() const { return {id.data(), id.size()}; }
};

template <class Number>
std::optional<Number> readNumber(std::istream& file) {
  std::array<char, sizeof(Number)> bytes{};
  if (!file.read(bytes.data(), bytes.size())) return std::nullopt;
  Number number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return number;
}

std::optional<ChunkHeader> readHeader(std::istream& file) {
  std::array<char, 4> id{};
  file.read(id.data(), id.size());
  const auto length = readNumber<std::uint32_t>(file);
  if (!length) return std::nullopt;
  return ChunkHeader{id, *length};
}

std::int64_t sizeOf(std::istream& file) {
  file.seekg(0, std::ios::end);
  const auto size = static_cast<std::int64_t>(file.tellg());
  file.seekg(0);
  return size;
}

}  // namespace

bool isTruncated(std::istream& file) {
  const std::int64_t size = sizeOf(file);
  const auto riff = readHeader(file);
  std::array<char, 4> form{};
  if (!riff || (riff->name() != "RIFF" && riff->name() != "RF64")) return false;
  if (file.read(form.data(), form.size()) && form != std::array{'W', 'A', 'V', 'E'}) return false;
  file.clear();

  std::optional<std::uint64_t> longLength;  // of the data, if beyond 32 bits
  std::int64_t position = 12;
  while (position < size) {
    file.seekg(position);
    const auto chunk = readHeader(file);
    if (!chunk) return true;
    if (chunk->name() == "ds64") {
      readNumber<std::uint64_t>(file);  // of the whole file
      longLength = readNumber<std::uint64_t>(file);
    }
    if (chunk->name() == "data") {
      const bool open = chunk->length == openLength || chunk->length == 0;
      const std::uint64_t promised = open ? longLength.value_or(0) : chunk->length;
      return promised > static_cast<std::uint64_t>(size - position - 8);
    }
    position += 8 + std::int64_t{chunk->length} + chunk->length % 2;
  }
  return true;
}

}  // namespace corvane::replay
