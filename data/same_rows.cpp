#include "data/same_rows.h"

#include <algorithm>

namespace veyra {
namespace {

bool IsSameRow(const Row& one, const Row& other) {
  return one.Key == other.Key && std::equal(one.Values.begin(), one.Values.end(),
                                            other.Values.begin(), other.Values.end(), IsSame);
}

}  // namespace

bool GivesTheSame(RowSource& source, const std::vector<Row>& rows) {
  std::size_t read = 0;
  for (Row row; source.Next(row); ++read) {
    if (read == rows.size() || !IsSameRow(row, rows[read])) {
      return false;
    }
  }
  return read == rows.size();
}

}  // namespace veyra
