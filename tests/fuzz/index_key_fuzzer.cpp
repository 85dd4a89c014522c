#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "data/access/write/index_key.h"

namespace {

using namespace veyra::access;

constexpr std::array kKinds{ColumnKind::Short, ColumnKind::Long, ColumnKind::Money,
                            ColumnKind::Double};

template <typename Number>
int Compared(const Bytes& one, const Bytes& other) {
  Number left{};
  Number right{};
  std::memcpy(&left, one.data(), sizeof left);
  std::memcpy(&right, other.data(), sizeof right);
  // What is not a number has no place in an order.
  return left < right ? -1 : left > right ? 1 : 0;
}

std::size_t SizeOf(ColumnKind kind) {
  return kind == ColumnKind::Short ? 2 : kind == ColumnKind::Long ? 4 : 8;
}

int ComparedAs(ColumnKind kind, const Bytes& one, const Bytes& other) {
  switch (kind) {
    case ColumnKind::Short:
      return Compared<std::int16_t>(one, other);
    case ColumnKind::Long:
      return Compared<std::int32_t>(one, other);
    case ColumnKind::Money:
      return Compared<std::int64_t>(one, other);
    default:
      return Compared<double>(one, other);
  }
}

}  // namespace

/// Keys sort as the values that they are made of: the first byte names the kind of the column and
/// its direction, the next ones are two values.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  const ColumnKind kind = kKinds.at(data[0] % kKinds.size());
  const bool descending = data[0] >= 128;
  const std::size_t bytes = SizeOf(kind);
  if (size < 1 + 2 * bytes) {
    return 0;
  }
  TableLayout table;
  table.Columns = {ColumnLayout{}};
  table.Columns.front().Kind = kind;
  IndexLayout index;
  index.Columns = {{0, descending}};
  const Bytes one(data + 1, data + 1 + bytes);
  const Bytes other(data + 1 + bytes, data + 1 + 2 * bytes);
  const Bytes key = IndexKey(index, table, RawRow{one});
  const Bytes other_key = IndexKey(index, table, RawRow{other});
  const int order = ComparedAs(kind, one, other) * (descending ? -1 : 1);
  if ((order < 0 && !(key < other_key)) || (order > 0 && !(other_key < key))) {
    std::abort();
  }
  return 0;
}
