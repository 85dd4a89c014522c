#pragma once

#include <cstdint>

#include "data/access/format/bytes.h"
#include "data/access/format/file_header.h"

namespace veyra::access {

// A row:
//
//   number of columns, 2 bytes [1 in Jet 3]
//   the fixed columns, each at its own offset, null or not
//   the variable columns, one after another
//   and, from the row's end backwards:
//     null bits, a bit for each column, lowest first: 1 has a value
//     in a table that has variable columns:
//       number of variable columns, 2 bytes [1]
//       [jumps: each names a variable column from which on offsets are 256 higher]
//       where each variable column begins, 2 bytes each [1], and where the last one ends
//
// A column that was added after the row was written lies beyond the row's own number of columns,
// and is null.

/// The parts of one row. Does not own the bytes. Every read is checked and throws DamagedFile.
class RowView {
 public:
  /// `table_has_variable` says whether the table ever had a variable column.
  RowView(ByteView row, Format version, bool table_has_variable);

  std::uint16_t ColumnCount() const { return column_count_; }
  std::uint16_t VariableCount() const { return variable_count_; }

  /// Whether the null bit of that column is set, which stands for a value.
  bool HasBit(std::uint16_t column_number) const;

  /// The bytes of a fixed column.
  ByteView Fixed(std::uint16_t offset, std::size_t length) const {
    return row_.Slice(first_column_ + offset, length);
  }

  /// The bytes of a variable column; none when the row has no such column.
  ByteView Variable(std::uint16_t place) const;

 private:
  std::size_t VariableOffset(std::size_t place) const;
  void ReadJumps(std::size_t count_at);

  ByteView row_;
  Format version_;
  std::size_t first_column_;
  std::uint16_t column_count_;
  std::size_t null_bits_at_;
  std::uint16_t variable_count_ = 0;
  std::size_t offsets_end_ = 0;  ///< Where the offset of the first variable column lies.
  std::size_t jumps_ = 0;        ///< Jet 3 only.
  std::size_t jumps_at_ = 0;     ///< Where the first jump lies; the others lie before it.
};

}  // namespace veyra::access
