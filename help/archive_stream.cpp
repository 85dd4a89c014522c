#include "help/archive_stream.h"

#include <cstdint>
#include <utility>

namespace veyra {
namespace {

std::string CountBytes(std::size_t count) {
  std::string bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes += static_cast<char>((count >> shift) & 0xFFU);
  }
  return bytes;
}

/// Takes a count off the front of `stream`.
std::optional<std::size_t> TakeCount(std::string_view& stream) {
  if (stream.size() < 4) {
    return std::nullopt;
  }
  std::size_t count = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    count |= static_cast<std::size_t>(static_cast<unsigned char>(stream[i])) << (8 * i);
  }
  stream.remove_prefix(4);
  return count;
}

/// Takes that many bytes off the front of `stream`.
std::optional<std::string> TakeBytes(std::string_view& stream, std::size_t count) {
  if (stream.size() < count) {
    return std::nullopt;
  }
  std::string bytes(stream.substr(0, count));
  stream.remove_prefix(count);
  return bytes;
}

std::optional<std::string> TakeCounted(std::string_view& stream) {
  const std::optional<std::size_t> count = TakeCount(stream);
  return count ? TakeBytes(stream, *count) : std::nullopt;
}

}  // namespace

std::string StreamedObject(const HelpObject& object) {
  return CountBytes(object.Name.size()) + object.Name + CountBytes(object.Bytes.size()) +
         object.Bytes;
}

std::string StreamEnd() {
  return CountBytes(0);
}

std::optional<std::vector<HelpObject>> ObjectsOfStream(std::string_view stream) {
  std::vector<HelpObject> objects;
  while (true) {
    std::optional<std::string> name = TakeCounted(stream);
    if (!name) {
      return std::nullopt;
    }
    if (name->empty()) {
      break;
    }
    std::optional<std::string> bytes = TakeCounted(stream);
    if (!bytes) {
      return std::nullopt;
    }
    objects.push_back({std::move(*name), std::move(*bytes)});
  }
  if (!stream.empty()) {
    return std::nullopt;
  }
  return objects;
}

}  // namespace veyra
