#pragma once

#include <cstdint>

#include "data/access/format/bytes.h"
#include "data/access/format/file_header.h"

namespace veyra::access {

// A data page:
//
//   0   kind 1, then 1
//   2   free bytes, 2 bytes
//   4   page of the table's definition, 4 bytes; "LVAL" where it holds long texts; 0 for maps
//   8   4 bytes more in Jet 4
//   8 or 12   number of rows, 2 bytes
//   10 or 14  where each row begins, 2 bytes each, with two flag bits
//
// Rows fill the page from its end downwards: a row ends where the one before it begins.

inline constexpr std::uint16_t kRowDeleted = 0x8000;  ///< Or reached through a moved row only.
inline constexpr std::uint16_t kRowMoved = 0x4000;    ///< Four bytes point at its new place.
inline constexpr std::uint16_t kRowOffset = 0x1FFF;

/// Reads the rows of a data page. Does not own the bytes.
class DataPage {
 public:
  /// Throws DamagedFile when the page promises more rows than it can hold.
  DataPage(ByteView page, Format version);

  std::uint16_t RowCount() const { return row_count_; }

  /// Where a row begins, with its flag bits. Throws DamagedFile when there is no such row.
  std::uint16_t Slot(std::uint16_t row) const;

  /// A row's bytes, whatever its flags. Throws DamagedFile when they leave the page.
  ByteView RowBytes(std::uint16_t row) const;

  std::uint32_t Owner() const { return page_.U32(4); }

 private:
  ByteView page_;
  std::size_t slots_at_;
  std::uint16_t row_count_;
};

/// The most rows of a page: a pointer has one byte for the row.
inline constexpr std::uint16_t kMostRows = 255;

/// The longest row that an empty Jet 4 page holds.
inline constexpr std::size_t kLongestRow = 4096 - 14 - 2;

/// A Jet 4 data page without rows.
Bytes EmptyDataPage(std::uint32_t owner);

/// Which slot a row is given.
enum class SlotUse {
  New,  ///< One after all others, so that rows stay in the order in which they came,
  Any,  ///< or one that was emptied.
};

/// Whether a row of that length can be added to a Jet 4 data page.
bool HasRoomFor(const Bytes& page, std::size_t length, SlotUse use = SlotUse::New);

/// Whether the bytes of a row can be replaced by that many.
bool HasRoomToReplace(const Bytes& page, std::uint16_t row, std::size_t length);

/// Adds a row with those flag bits and returns its number. REQUIRES: HasRoomFor(page, row.size(),
/// use).
std::uint16_t AddRow(Bytes& page, const Bytes& row, std::uint16_t flags = 0,
                     SlotUse use = SlotUse::New);

/// Replaces a row's bytes and flag bits. REQUIRES: HasRoomToReplace(page, row, bytes.size()).
void ReplaceRow(Bytes& page, std::uint16_t row, const Bytes& bytes, std::uint16_t flags);

/// Empties a row's slot, which stays.
void DeleteRow(Bytes& page, std::uint16_t row);

/// Whether every slot has been emptied by DeleteRow.
bool HasNoRows(const Bytes& page);

/// Where the slots of a data page begin.
inline constexpr std::size_t SlotsAt(Format version) {
  return version == Format::Jet3 ? 10 : 14;
}

}  // namespace veyra::access
