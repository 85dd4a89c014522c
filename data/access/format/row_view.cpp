#include "data/access/format/row_view.h"

namespace veyra::access {

RowView::RowView(ByteView row, Format version, bool table_has_variable)
    : row_(row),
      version_(version),
      first_column_(version == Format::Jet3 ? 1 : 2),
      column_count_(version == Format::Jet3 ? row.U8(0) : row.U16(0)) {
  const std::size_t null_bytes = (std::size_t{column_count_} + 7) / 8;
  if (null_bytes > row.size()) {
    throw DamagedFile();
  }
  null_bits_at_ = row.size() - null_bytes;
  if (!table_has_variable) {
    return;
  }
  if (null_bits_at_ < 4) {
    throw DamagedFile();
  }
  if (version == Format::Jet3) {
    ReadJumps(null_bits_at_ - 1);
  } else {
    variable_count_ = row.U16(null_bits_at_ - 2);
    offsets_end_ = null_bits_at_ - 4;
  }
}

void RowView::ReadJumps(std::size_t count_at) {
  variable_count_ = row_.U8(count_at);
  jumps_ = (row_.size() - 1) / 256;
  if (count_at < jumps_ + 1) {
    throw DamagedFile();
  }
  jumps_at_ = count_at - 1;
  offsets_end_ = count_at - jumps_ - 1;
  if (offsets_end_ < variable_count_) {
    throw DamagedFile();
  }
  if ((offsets_end_ - variable_count_) / 256 < jumps_) {
    --jumps_;
  }
}

bool RowView::HasBit(std::uint16_t column_number) const {
  return column_number < column_count_ &&
         ((row_.U8(null_bits_at_ + column_number / 8U) >> (column_number % 8U)) & 1U) != 0;
}

std::size_t RowView::VariableOffset(std::size_t place) const {
  const std::size_t step = version_ == Format::Jet3 ? 1 : 2;
  if (offsets_end_ < place * step) {
    throw DamagedFile();
  }
  const std::size_t at = offsets_end_ - place * step;
  if (version_ == Format::Jet4) {
    return row_.U16(at);
  }
  std::size_t jumped = 0;
  while (jumped < jumps_ && row_.U8(jumps_at_ - jumped) <= place) {
    ++jumped;
  }
  return row_.U8(at) + jumped * 256;
}

ByteView RowView::Variable(std::uint16_t place) const {
  if (place >= variable_count_) {
    return {};
  }
  const std::size_t begin = VariableOffset(place);
  const std::size_t end = VariableOffset(place + std::size_t{1});
  if (begin > end || end > null_bits_at_) {
    throw DamagedFile();
  }
  return row_.Slice(begin, end - begin);
}

}  // namespace veyra::access
