#include "data/access/read/table_image.h"

#include <algorithm>
#include <cmath>

#include "data/access/format/data_page.h"

namespace veyra::access {

namespace {

constexpr int kMostMoves = 16;
constexpr unsigned kRowBits = 16;

RowPointer PointerInRow(ByteView row) {
  return PointerFrom(row.U32(0));
}

std::optional<double> FixedNumber(const RowView& row, const ColumnLayout& column) {
  if (!row.HasBit(column.Number)) {
    return std::nullopt;
  }
  const ByteView bytes = row.Fixed(column.FixedOffset, FixedLength(column.Kind));
  switch (column.Kind) {
    case ColumnKind::OneByte:
      return bytes.U8(0);
    case ColumnKind::Short:
      return bytes.I16(0);
    case ColumnKind::Long:
      return bytes.I32(0);
    case ColumnKind::Double:
      return bytes.Double(0);
    default:
      return static_cast<double>(SplitSerial({bytes.Double(0)}).Days);
  }
}

}  // namespace

RowKey KeyOf(RowPointer home) {
  return (RowKey{home.Page} << kRowBits) | home.Row;
}

RowPointer HomeOf(RowKey key) {
  return {static_cast<PageNumber>(key >> kRowBits), static_cast<std::uint16_t>(key & 0xFFFF)};
}

std::optional<RowPointer> ResolveRow(PageSource& file, RowPointer home) {
  RowPointer place = home;
  for (int moves = 0; moves < kMostMoves; ++moves) {
    const PagePtr bytes = file.ReadPage(place.Page, PageKind::Data);
    const DataPage page(*bytes, file.Header().Version);
    const std::uint16_t slot = page.Slot(place.Row);
    if (moves == 0 && (slot & kRowDeleted) != 0) {
      return std::nullopt;
    }
    if ((slot & kRowMoved) == 0) {
      return place;
    }
    place = PointerInRow(page.RowBytes(place.Row));
  }
  throw DamagedFile();
}

TableImage::TableImage(PageSource& file, PageNumber definition)
    : layout_(ReadTableLayout(file, definition)), version_(file.Header().Version) {
  for (const PageNumber page : ReadUsageMap(file, layout_.Owned)) {
    ReadSlots(file, page);
  }
  if (slots_.size() != layout_.RowCount) {
    throw DamagedFile("A table of the database has " + std::to_string(slots_.size()) +
                      " rows where its definition says " + std::to_string(layout_.RowCount) +
                      ": another program is writing to it, or it is damaged.");
  }
}

void TableImage::ReadSlots(PageSource& file, PageNumber number) {
  const PagePtr bytes = file.ReadPage(number);
  if (bytes->front() != static_cast<Byte>(PageKind::Data)) {
    return;
  }
  const DataPage page(*bytes, version_);
  if (page.Owner() != layout_.Page) {
    return;
  }
  const std::uint32_t place = PlaceOfPage(file, number);
  for (std::uint16_t row = 0; row < page.RowCount(); ++row) {
    const std::uint16_t slot = page.Slot(row);
    if ((slot & kRowDeleted) != 0) {
      continue;
    }
    const RowKey key = KeyOf({number, row});
    if ((slot & kRowMoved) == 0) {
      slots_.push_back({key, place, row});
    } else if (const auto target = ResolveRow(file, {number, row})) {
      slots_.push_back({key, PlaceOfPage(file, target->Page), target->Row});
    }
  }
}

std::uint32_t TableImage::PlaceOfPage(PageSource& file, PageNumber number) {
  const auto [found, added] =
      places_.try_emplace(number, static_cast<std::uint32_t>(pages_.size()));
  if (added) {
    pages_.push_back(file.ReadPage(number, PageKind::Data));
  }
  return found->second;
}

RowView TableImage::View(std::size_t index) const {
  const Slot& slot = slots_[index];
  const ByteView row = DataPage(*pages_[slot.Page], version_).RowBytes(slot.Row);
  return {row, version_, layout_.VariableColumns > 0};
}

bool TableImage::IsNumeric(std::size_t column) const {
  const ColumnLayout& layout = layout_.Columns[column];
  switch (layout.Kind) {
    case ColumnKind::OneByte:
    case ColumnKind::Short:
    case ColumnKind::Long:
    case ColumnKind::Double:
    case ColumnKind::DateTime:
      return layout.IsFixed();
    default:
      return false;
  }
}

TableImage::Order TableImage::MakeOrder(std::size_t column) const {
  Order order;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const std::optional<double> key = FixedNumber(View(i), layout_.Columns[column]);
    if (key && !std::isnan(*key)) {
      order.emplace_back(*key, static_cast<std::uint32_t>(i));
    }
  }
  std::sort(order.begin(), order.end());
  return order;
}

std::vector<std::size_t> TableImage::RowsEqual(std::size_t column, double key) {
  auto found = orders_.find(column);
  if (found == orders_.end()) {
    found = orders_.emplace(column, MakeOrder(column)).first;
  }
  const Order& order = found->second;
  std::vector<std::size_t> rows;
  for (auto row = std::lower_bound(order.begin(), order.end(), std::pair(key, 0U));
       row != order.end() && row->first == key; ++row) {
    rows.push_back(row->second);
  }
  return rows;
}

std::optional<double> OrderKey(const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    return static_cast<double>(*number);
  }
  if (const auto* number = std::get_if<double>(&value)) {
    return *number;
  }
  if (const auto* date = std::get_if<Date>(&value)) {
    return static_cast<double>(DaysFromDate(*date));
  }
  return std::nullopt;
}

}  // namespace veyra::access
