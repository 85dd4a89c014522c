#include "data/access/write/long_writer.h"

#include <algorithm>

#include "data/access/format/data_page.h"
#include "data/access/write/usage_map_writer.h"

namespace veyra::access {

namespace {

constexpr std::size_t kInRowBytes = 12;
constexpr std::size_t kMostInRow = 256;
constexpr std::uint32_t kFollows = 0x80000000;
constexpr std::uint32_t kOneRow = 0x40000000;
constexpr std::uint32_t kMostLength = 0x3FFFFFFF;
constexpr std::uint32_t kLongPage = 0x4C41564C;  // "LVAL"
constexpr std::size_t kNextBytes = 4;

const LongColumnMaps& MapsOf(const TableLayout& table, const ColumnLayout& column) {
  for (const LongColumnMaps& maps : table.LongColumns) {
    if (maps.Number == column.Number) {
      return maps;
    }
  }
  throw DamagedFile();
}

Bytes InRow(std::uint32_t length_and_flags, RowPointer pointer) {
  Bytes bytes;
  Append(bytes, length_and_flags);
  Append(bytes, PointerNumber(pointer));
  bytes.resize(kInRowBytes);
  return bytes;
}

bool IsLongPage(const Bytes& page) {
  return page.front() == static_cast<Byte>(PageKind::Data) && ByteView(page).U32(4) == kLongPage;
}

RowPointer PlaceRow(PageChanges& pages, const LongColumnMaps& maps, const Bytes& row) {
  for (const PageNumber number : ReadUsageMap(pages, maps.Free)) {
    const PagePtr page = pages.ReadPage(number);
    if (IsLongPage(*page) && HasRoomFor(*page, row.size(), SlotUse::Any)) {
      return {number, AddRow(pages.Edit(number), row, 0, SlotUse::Any)};
    }
    RemoveFromMap(pages, maps.Free, number);
  }
  const PageNumber number = TakePage(pages);
  pages.Edit(number) = EmptyDataPage(kLongPage);
  AddToMap(pages, maps.Owned, number);
  AddToMap(pages, maps.Free, number);
  return {number, AddRow(pages.Edit(number), row)};
}

/// The rows are placed from the last to the first, so that each knows where the next one is.
RowPointer PlaceChain(PageChanges& pages, const LongColumnMaps& maps, const Bytes& value) {
  constexpr std::size_t kEach = kLongestRow - kNextBytes;
  RowPointer next;
  for (std::size_t parts = (value.size() + kEach - 1) / kEach; parts > 0; --parts) {
    const std::size_t begin = (parts - 1) * kEach;
    const std::size_t end = std::min(begin + kEach, value.size());
    Bytes row;
    Append(row, PointerNumber(next));
    row.insert(row.end(), value.begin() + static_cast<std::ptrdiff_t>(begin),
               value.begin() + static_cast<std::ptrdiff_t>(end));
    next = PlaceRow(pages, maps, row);
  }
  return next;
}

/// Empties a row of a long value and returns what it began with.
RowPointer DropRow(PageChanges& pages, const LongColumnMaps& maps, RowPointer row) {
  Bytes& page = pages.Edit(row.Page);
  if (!IsLongPage(page)) {
    throw DamagedFile();
  }
  const ByteView bytes = DataPage(page, Format::Jet4).RowBytes(row.Row);
  const RowPointer next = bytes.size() < kNextBytes ? RowPointer() : PointerFrom(bytes.U32(0));
  DeleteRow(page, row.Row);
  if (HasNoRows(page)) {
    RemoveFromMap(pages, maps.Owned, row.Page);
    RemoveFromMap(pages, maps.Free, row.Page);
    FreePage(pages, row.Page);
  } else {
    AddToMap(pages, maps.Free, row.Page);
  }
  return next;
}

}  // namespace

Bytes StoreLong(PageChanges& pages, const TableLayout& table, const ColumnLayout& column,
                const Bytes& value) {
  if (value.size() > kMostLength) {
    throw ValueRefused(Phrase::Tr("The text is longer than an Access file allows."),
                       Phrase::Tr("Shorten it."));
  }
  const auto length = static_cast<std::uint32_t>(value.size());
  if (value.size() <= kMostInRow) {
    Bytes bytes = InRow(length | kFollows, {});
    bytes.insert(bytes.end(), value.begin(), value.end());
    return bytes;
  }
  const LongColumnMaps& maps = MapsOf(table, column);
  if (value.size() <= kLongestRow) {
    return InRow(length | kOneRow, PlaceRow(pages, maps, value));
  }
  return InRow(length, PlaceChain(pages, maps, value));
}

bool HasRoomForLong(const TableLayout& table, const ColumnLayout& column) {
  return std::any_of(table.LongColumns.begin(), table.LongColumns.end(),
                     [&](const LongColumnMaps& maps) { return maps.Number == column.Number; });
}

void DropLong(PageChanges& pages, const TableLayout& table, const ColumnLayout& column,
              const Bytes& in_row) {
  const ByteView bytes(in_row);
  const std::uint32_t first = bytes.U32(0);
  if ((first & kFollows) != 0) {
    return;
  }
  const LongColumnMaps& maps = MapsOf(table, column);
  RowPointer row = PointerFrom(bytes.U32(4));
  if ((first & kOneRow) != 0) {
    DropRow(pages, maps, row);
    return;
  }
  for (PageNumber dropped = 0; row.Page != 0 && dropped < pages.PageCount(); ++dropped) {
    row = DropRow(pages, maps, row);
  }
}

}  // namespace veyra::access
