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

std::optional<ChunkHeader> readHeader(std::istream& file) {
  std::array<char, 8> bytes{};
  if (!file.read(bytes.data(), bytes.size())) return std::nullopt;
  ChunkHeader header{{bytes[0], bytes[1], bytes[2], bytes[3]}, 0};
  for (std::size_t i = 8; i-- > 4;) {
    header.length = (header.length << 8) | static_cast<unsigned char>(bytes[i]);
  }
  return header;
}

std::int64_t sizeOf(std::istream& file) {
  file.seekg(0, std::ios::end);
  const auto size = static_cast<std::int64_t>(file.tellg());
  file.seekg(0);
  return size;
}

}  // namespace

bool isCutShort(std::istream& file) {
  const std::int64_t size = sizeOf(file);
  const auto riff = readHeader(file);
  std::array<char, 4> form{};
  if (!riff || riff->name() != "RIFF") return false;
  if (file.read(form.data(), form.size()) && form != std::array{'W', 'A', 'V', 'E'}) return false;
  file.clear();

  std::int64_t position = 12;
  while (position < size) {
    file.seekg(position);
    const auto chunk = readHeader(file);
    if (!chunk) return true;
    if (chunk->name() == "data") {
      const bool open = chunk->length == openLength || chunk->length == 0;
      return !open && position + 8 + std::int64_t{chunk->length} > size;
    }
    position += 8 + std::int64_t{chunk->length} + chunk->length % 2;
  }
  return true;
}

}  // namespace corvane::replay
