#pragma once

#include <string>
#include <utility>

#include "data/access/read/table_rows.h"
#include "data/access/reporting.h"
#include "data/store.h"

namespace veyra::access {

/// The rows of a query, whose failures are told of the file and the table.
class AccessRows : public RowSource {
 public:
  AccessRows(const std::string& file_name, const std::string& table, access::TableRows rows)
      : file_name_(file_name), table_(table), rows_(std::move(rows)) {}

  bool Next(Row& row) override {
    return Reporting(file_name_, table_, [&] { return rows_.Next(row); });
  }

 private:
  std::string file_name_;
  std::string table_;
  access::TableRows rows_;
};

}  // namespace veyra::access
