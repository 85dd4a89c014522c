#include "data/same_rows.h"

#include <algorithm>
#include <cstring>

namespace veyra {
namespace {

/// Equal to the last bit, so that a number that is none equals itself.
bool IsSame(const Value& one, const Value& other) {
  const auto* first = std::get_if<double>(&one);
  const auto* second = std::get_if<double>(&other);
  if (first != nullptr && second != nullptr) {
    return std::memcmp(first, second, sizeof(double)) == 0;
  }
  return one == other;
}

bool IsSame(const Row& one, const Row& other) {
  return one.Key == other.Key &&
         std::equal(one.Values.begin(), one.Values.end(), other.Values.begin(), other.Values.end(),
                    [](const Value& a, const Value& b) { return IsSame(a, b); });
}

}  // namespace

bool GivesTheSame(RowSource& source, const std::vector<Row>& rows) {
  std::size_t read = 0;
  for (Row row; source.Next(row); ++read) {
    if (read == rows.size() || !IsSame(row, rows[read])) {
      return false;
    }
  }
  return read == rows.size();
}

}  // namespace veyra
