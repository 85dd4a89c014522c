#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/phrase.h"
#include "data/store.h"
#include "data/store_description.h"

namespace veyra {

/// A row that was read out of a damaged file.
struct SalvagedRow {
  std::int64_t Page = 0;  ///< Where it begins.
  std::vector<Value> Values;
};

struct SalvagedTable {
  TableDescription Table;                     ///< Without a count of rows.
  std::optional<std::int64_t> Expected = {};  ///< How many rows the file says there are.
  std::vector<SalvagedRow> Rows = {};
};

/// Something that could not be read.
struct SalvageLoss {
  std::string Table;                      ///< Empty where that cannot be told.
  std::optional<std::int64_t> Page = {};  ///< As the kind of file counts them.
  Phrase What;                            ///< A sentence.
};

/// What is still to be had of a damaged file.
struct Salvage {
  FileKind Kind = FileKind::Sqlite;
  std::vector<SalvagedTable> Tables = {};
  std::vector<SalvageLoss> Losses = {};
};

/// The tables that a file may be expected to have. A table whose own definition is damaged is read
/// as one of them, provided that all its rows are rows of that one.
struct SalvageModels {
  std::vector<TableDefinition> Tables;
  std::string AccessFile;  ///< An Access file with these tables, as this program makes it.

  /// Whether a row means something in its table, whose columns are named.
  std::function<bool(const std::string& table, const std::vector<std::string>& columns,
                     const std::vector<Value>& values)>
      IsPlausible;
};

}  // namespace veyra
