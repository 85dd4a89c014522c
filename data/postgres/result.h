#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "data/postgres/libpq.h"

namespace veyra::postgres {

/// The rows that the server gave. Rows and columns count from 0. A null reads as empty, and as 0.
class Result {
 public:
  /// Takes `result` over, which may be null.
  Result(LibpqPtr libpq, PGresult* result) : libpq_(std::move(libpq)), result_(result) {}
  ~Result() {
    if (result_ != nullptr) {
      libpq_->Clear(result_);
    }
  }
  Result(Result&& other) noexcept
      : libpq_(std::move(other.libpq_)), result_(std::exchange(other.result_, nullptr)) {}
  Result& operator=(Result&& other) noexcept {
    std::swap(libpq_, other.libpq_);
    std::swap(result_, other.result_);
    return *this;
  }

  int RowCount() const { return libpq_->RowCount(result_); }
  int ColumnCount() const { return libpq_->FieldCount(result_); }
  std::string ColumnName(int column) const { return libpq_->FieldName(result_, column); }

  /// The number by which the server knows the column's type.
  unsigned Type(int column) const { return libpq_->FieldType(result_, column); }

  bool IsNull(int row, int column) const { return libpq_->IsNull(result_, row, column) != 0; }
  std::string Text(int row, int column) const {
    return {libpq_->GetValue(result_, row, column),
            static_cast<std::size_t>(libpq_->GetLength(result_, row, column))};
  }
  std::int64_t Number(int row, int column) const {
    const std::string text = Text(row, column);
    return text.empty() ? 0 : std::stoll(text);
  }
  bool IsTrue(int row, int column) const { return Text(row, column) == "t"; }

 private:
  LibpqPtr libpq_;
  PGresult* result_;
};

}  // namespace veyra::postgres
