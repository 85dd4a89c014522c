#include "data/access/read/table_image.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "data/access/format/data_page.h"

namespace veyra::access {

namespace {

constexpr int kMostMoves = 16;
constexpr unsigned kRowBits = 16;

/// With more than so many pages changed, all of them are read again.
constexpr std::size_t kMostPagesToMend = 32;

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

/// The first of the slots that has that key or a higher one.
auto FirstFrom(auto& slots, RowKey key) {
  return std::lower_bound(slots.begin(), slots.end(), key,
                          [](const auto& slot, RowKey wanted) { return slot.Key < wanted; });
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
    : layout_(ReadTableLayout(file, definition)),
      version_(file.Header().Version),
      owned_(ReadUsageMap(file, layout_.Owned)) {
  for (const PageNumber page : owned_) {
    ReadSlots(file, page);
  }
  CheckRowCount();
}

void TableImage::CheckRowCount() const {
  if (slots_.size() != layout_.RowCount) {
    throw DamagedFile(
        Phrase::Tr("A table of the database has %1 rows where its definition says %2: another "
                   "program is writing to it, or it is damaged.",
                   slots_.size(), layout_.RowCount));
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
      moved_from_[target->Page].insert(number);
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
  return ViewOf(slots_[index]);
}

RowView TableImage::ViewOf(const Slot& slot) const {
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

std::vector<NumberOrder::Entry> TableImage::NumbersOf(std::size_t column,
                                                      const std::vector<Slot>& slots) const {
  std::vector<NumberOrder::Entry> numbers;
  for (const Slot& slot : slots) {
    const std::optional<double> number = FixedNumber(ViewOf(slot), layout_.Columns[column]);
    if (number && !std::isnan(*number)) {
      numbers.emplace_back(*number, slot.Key);
    }
  }
  return numbers;
}

std::vector<std::size_t> TableImage::RowsEqual(std::size_t column, double key) {
  auto order = orders_.find(column);
  if (order == orders_.end()) {
    order = orders_.emplace(column, NumberOrder(NumbersOf(column, slots_))).first;
  }
  std::vector<std::size_t> rows;
  for (const RowKey row : order->second.RowsOf(key)) {
    rows.push_back(static_cast<std::size_t>(FirstFrom(slots_, row) - slots_.begin()));
  }
  return rows;
}

bool TableImage::Mend(PageSource& file, const PageImages& changed) {
  TableLayout layout = ReadTableLayout(file, layout_.Page);
  std::vector<PageNumber> owned = ReadUsageMap(file, layout.Owned);
  const std::set<PageNumber> pages = PagesToRead(changed, owned);
  if (layout.Columns != layout_.Columns || pages.size() > kMostPagesToMend) {
    return false;
  }
  std::map<std::size_t, std::vector<NumberOrder::Entry>> gone;
  const std::vector<Slot> taken = TakeSlots(pages);
  for (const auto& order : orders_) {
    gone[order.first] = NumbersOf(order.first, taken);
  }
  for (const auto& place : places_) {
    if (changed.contains(place.first)) {
      pages_[place.second] = file.ReadPage(place.first);
    }
  }
  layout_ = std::move(layout);
  owned_ = std::move(owned);
  const std::vector<Slot> found = FindSlots(file, pages);
  for (auto& order : orders_) {
    order.second.Replace(std::move(gone[order.first]), NumbersOf(order.first, found));
  }
  CheckRowCount();
  return true;
}

/// The pages whose slots may be others now: those that were changed, those that rows were moved to
/// them from, and those that the table has got or given back.
std::set<PageNumber> TableImage::PagesToRead(const PageImages& changed,
                                             const std::vector<PageNumber>& owned) const {
  std::set<PageNumber> pages;
  std::set_symmetric_difference(owned_.begin(), owned_.end(), owned.begin(), owned.end(),
                                std::inserter(pages, pages.end()));
  for (const auto& page : changed) {
    if (std::binary_search(owned.begin(), owned.end(), page.first)) {
      pages.insert(page.first);
    }
    const auto homes = moved_from_.find(page.first);
    if (homes != moved_from_.end()) {
      pages.insert(homes->second.begin(), homes->second.end());
    }
  }
  return pages;
}

std::vector<TableImage::Slot> TableImage::TakeSlots(const std::set<PageNumber>& pages) {
  std::vector<Slot> taken;
  for (const PageNumber page : pages) {
    const auto first = FirstFrom(slots_, KeyOf({page, 0}));
    const auto end = FirstFrom(slots_, KeyOf({page + 1, 0}));
    taken.insert(taken.end(), first, end);
    slots_.erase(first, end);
  }
  return taken;
}

/// Reads the slots of these pages, and puts them where they belong.
std::vector<TableImage::Slot> TableImage::FindSlots(PageSource& file,
                                                    const std::set<PageNumber>& pages) {
  std::vector<Slot> others;
  others.swap(slots_);
  for (const PageNumber page : pages) {
    if (std::binary_search(owned_.begin(), owned_.end(), page)) {
      ReadSlots(file, page);
    }
  }
  std::vector<Slot> found;
  found.swap(slots_);
  slots_.swap(others);
  for (auto page = found.begin(); page != found.end();) {
    const auto end = FirstFrom(found, KeyOf({HomeOf(page->Key).Page + 1, 0}));
    slots_.insert(FirstFrom(slots_, page->Key), page, end);
    page = end;
  }
  return found;
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
