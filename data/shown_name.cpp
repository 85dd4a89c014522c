#include "data/shown_name.h"

#include <cstddef>

namespace veyra {
namespace {

constexpr std::string_view kIsolate = "\xE2\x81\xA8";     // U+2068, first strong isolate
constexpr std::string_view kEndIsolate = "\xE2\x81\xA9";  // U+2069
constexpr std::size_t kSignBytes = 3;

/// U+202A to U+202E: embeddings, overrides and their end, which an isolate around them ends too.
bool IsEmbedding(std::string_view sign) {
  return sign.starts_with("\xE2\x80") && sign[2] >= '\xAA' && sign[2] <= '\xAE';
}

/// U+2066 to U+2069.
bool IsIsolate(std::string_view sign) {
  return sign.starts_with("\xE2\x81") && sign[2] >= '\xA6' && sign[2] <= '\xA9';
}

bool TurnsDirection(std::string_view name) {
  for (std::size_t at = 0; at + kSignBytes <= name.size(); ++at) {
    const std::string_view sign = name.substr(at, kSignBytes);
    if (IsEmbedding(sign) || IsIsolate(sign)) {
      return true;
    }
  }
  return false;
}

/// The name with as many ends of isolates as it has beginnings.
std::string Balanced(std::string_view name) {
  std::string balanced;
  std::size_t open = 0;
  while (!name.empty()) {
    const bool is_isolate = name.size() >= kSignBytes && IsIsolate(name.substr(0, kSignBytes));
    const bool is_end = is_isolate && name.starts_with(kEndIsolate);
    const std::size_t length = is_isolate ? kSignBytes : 1;
    if (!is_end || open > 0) {
      balanced += name.substr(0, length);
    }
    open += is_isolate && !is_end ? 1 : 0;
    open -= is_end && open > 0 ? 1 : 0;
    name.remove_prefix(length);
  }
  for (; open > 0; --open) {
    balanced += kEndIsolate;
  }
  return balanced;
}

}  // namespace

std::string ShownName(std::string_view name) {
  if (!TurnsDirection(name)) {
    return std::string(name);
  }
  return std::string(kIsolate) + Balanced(name) + std::string(kEndIsolate);
}

}  // namespace veyra
