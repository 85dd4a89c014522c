#include "data/access/format/data_page.h"

#include <algorithm>
#include <vector>

namespace veyra::access {

namespace {

constexpr std::size_t kPageSize = 4096;
constexpr std::size_t kCountAt = 12;
constexpr std::uint16_t kEmptied = kRowDeleted | kRowMoved;

struct Slot {
  Bytes Row;
  std::uint16_t Flags = 0;
};

std::vector<Slot> SlotsOf(const Bytes& page) {
  const DataPage rows(page, Format::Jet4);
  std::vector<Slot> slots;
  for (std::uint16_t row = 0; row < rows.RowCount(); ++row) {
    const auto flags = static_cast<std::uint16_t>(rows.Slot(row) & kEmptied);
    slots.push_back({flags == kEmptied ? Bytes() : rows.RowBytes(row).Copy(), flags});
  }
  return slots;
}

std::size_t BytesNeeded(const std::vector<Slot>& slots) {
  std::size_t needed = SlotsAt(Format::Jet4);
  for (const Slot& slot : slots) {
    needed += slot.Row.size() + 2;
  }
  return needed;
}

void SetFreeBytes(Bytes& page) {
  const DataPage rows(page, Format::Jet4);
  const std::uint16_t count = rows.RowCount();
  const std::size_t begin =
      count == 0 ? kPageSize : rows.Slot(static_cast<std::uint16_t>(count - 1)) & kRowOffset;
  const std::size_t slots_end = SlotsAt(Format::Jet4) + std::size_t{count} * 2;
  Put(page, 2, static_cast<std::uint16_t>(begin - std::min(begin, slots_end)));
}

/// In a damaged page rows may overlap, and so need more room than there is.
void WriteSlots(Bytes& page, const std::vector<Slot>& slots) {
  if (BytesNeeded(slots) > page.size()) {
    throw DamagedFile();
  }
  const std::size_t head = SlotsAt(Format::Jet4);
  std::fill(page.begin() + static_cast<std::ptrdiff_t>(head), page.end(), Byte{0});
  Put(page, kCountAt, static_cast<std::uint16_t>(slots.size()));
  std::size_t begin = page.size();
  for (std::size_t i = 0; i < slots.size(); ++i) {
    begin -= slots[i].Row.size();
    std::copy(slots[i].Row.begin(), slots[i].Row.end(),
              page.begin() + static_cast<std::ptrdiff_t>(begin));
    Put(page, head + i * 2, static_cast<std::uint16_t>(begin | slots[i].Flags));
  }
  SetFreeBytes(page);
}

std::size_t FirstEmptied(const std::vector<Slot>& slots) {
  const auto emptied = std::find_if(slots.begin(), slots.end(),
                                    [](const Slot& slot) { return slot.Flags == kEmptied; });
  return static_cast<std::size_t>(emptied - slots.begin());
}

/// Whether a slot can be used again.
bool HasEmptied(const Bytes& page) {
  const DataPage rows(page, Format::Jet4);
  for (std::uint16_t row = 0; row < rows.RowCount(); ++row) {
    if ((rows.Slot(row) & kEmptied) == kEmptied) {
      return true;
    }
  }
  return false;
}

/// Where the rows begin: at the last one, for a row ends where the one before it begins.
std::size_t BeginOfRows(const Bytes& page) {
  const DataPage rows(page, Format::Jet4);
  const std::uint16_t count = rows.RowCount();
  return count == 0 ? page.size() : rows.Slot(static_cast<std::uint16_t>(count - 1)) & kRowOffset;
}

/// Whether a row and its slot fit between the slots and the rows as they stand.
bool HasGapFor(const Bytes& page, std::size_t length) {
  const std::uint16_t count = DataPage(page, Format::Jet4).RowCount();
  const std::size_t slots_end = SlotsAt(Format::Jet4) + (std::size_t{count} + 1) * 2;
  return count < kMostRows && slots_end + length <= BeginOfRows(page);
}

/// Puts a row into that gap.
std::uint16_t AppendRow(Bytes& page, const Bytes& row, std::uint16_t flags) {
  const std::uint16_t place = DataPage(page, Format::Jet4).RowCount();
  const std::size_t begin = BeginOfRows(page) - row.size();
  std::copy(row.begin(), row.end(), page.begin() + static_cast<std::ptrdiff_t>(begin));
  Put(page, SlotsAt(Format::Jet4) + std::size_t{place} * 2,
      static_cast<std::uint16_t>(begin | flags));
  Put(page, kCountAt, static_cast<std::uint16_t>(place + 1));
  SetFreeBytes(page);
  return place;
}

}  // namespace

DataPage::DataPage(ByteView page, Format version)
    : page_(page), slots_at_(SlotsAt(version)), row_count_(page.U16(slots_at_ - 2)) {
  if (slots_at_ + std::size_t{row_count_} * 2 > page.size()) {
    throw DamagedFile();
  }
}

std::uint16_t DataPage::Slot(std::uint16_t row) const {
  if (row >= row_count_) {
    throw DamagedFile();
  }
  return page_.U16(slots_at_ + std::size_t{row} * 2);
}

ByteView DataPage::RowBytes(std::uint16_t row) const {
  const std::size_t begin = Slot(row) & kRowOffset;
  const std::size_t end =
      row == 0 ? page_.size() : Slot(static_cast<std::uint16_t>(row - 1)) & kRowOffset;
  if (begin > end || begin < slots_at_) {
    throw DamagedFile();
  }
  return page_.Slice(begin, end - begin);
}

Bytes EmptyDataPage(std::uint32_t owner) {
  Bytes page(kPageSize);
  page[0] = 1;
  page[1] = 1;
  Put(page, 4, owner);
  SetFreeBytes(page);
  return page;
}

bool HasRoomFor(const Bytes& page, std::size_t length, SlotUse use) {
  if (HasGapFor(page, length)) {
    return true;
  }
  const std::vector<Slot> slots = SlotsOf(page);
  const bool reuses = use == SlotUse::Any && FirstEmptied(slots) < slots.size();
  return (reuses || slots.size() < kMostRows) &&
         BytesNeeded(slots) + length + (reuses ? 0 : 2) <= page.size();
}

bool HasRoomToReplace(const Bytes& page, std::uint16_t row, std::size_t length) {
  const std::vector<Slot> slots = SlotsOf(page);
  return row < slots.size() && BytesNeeded(slots) - slots[row].Row.size() + length <= page.size();
}

std::uint16_t AddRow(Bytes& page, const Bytes& row, std::uint16_t flags, SlotUse use) {
  if (HasGapFor(page, row.size()) && (use == SlotUse::New || !HasEmptied(page))) {
    return AppendRow(page, row, flags);
  }
  std::vector<Slot> slots = SlotsOf(page);
  const std::size_t place = use == SlotUse::Any ? FirstEmptied(slots) : slots.size();
  if (place == slots.size()) {
    slots.emplace_back();
  }
  slots[place] = {row, flags};
  WriteSlots(page, slots);
  return static_cast<std::uint16_t>(place);
}

void ReplaceRow(Bytes& page, std::uint16_t row, const Bytes& bytes, std::uint16_t flags) {
  std::vector<Slot> slots = SlotsOf(page);
  if (row >= slots.size()) {
    throw DamagedFile();
  }
  slots[row] = {bytes, flags};
  WriteSlots(page, slots);
}

void DeleteRow(Bytes& page, std::uint16_t row) {
  ReplaceRow(page, row, {}, kEmptied);
}

bool HasNoRows(const Bytes& page) {
  const std::vector<Slot> slots = SlotsOf(page);
  return std::all_of(slots.begin(), slots.end(),
                     [](const Slot& slot) { return slot.Flags == kEmptied; });
}

}  // namespace veyra::access
