#pragma once

#include <cstdint>
#include <memory>

#include "data/access/format/bytes.h"

namespace veyra::access {

using PageNumber = std::uint32_t;
using PagePtr = std::shared_ptr<const Bytes>;

/// The first byte of a page.
enum class PageKind : Byte {
  Data = 1,
  TableDefinition = 2,
  IndexNode = 3,
  IndexLeaf = 4,
  UsageMap = 5,
};

/// Where a row lies. In the file: the row's number in the lowest byte, the page above it.
struct RowPointer {
  PageNumber Page = 0;
  std::uint16_t Row = 0;

  bool operator==(const RowPointer&) const = default;
};

/// The pointer that a 32-bit number of the file stands for, and back.
constexpr RowPointer PointerFrom(std::uint32_t number) {
  return {number >> 8U, static_cast<std::uint16_t>(number & 0xFFU)};
}
constexpr std::uint32_t PointerNumber(RowPointer pointer) {
  return (pointer.Page << 8U) | (pointer.Row & 0xFFU);
}

}  // namespace veyra::access
