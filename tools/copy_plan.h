#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/store.h"

namespace veyra {

/// How far a copy has come: "Copied" 1200 of 2000 rows.
struct CopyStep {
  const char* Verb = "";
  std::int64_t Rows = 0;
  std::int64_t Of = 0;
};

/// Told of each row; what it throws breaks the copy off.
using CopyObserver = std::function<void(const CopyStep&)>;

/// How a table is copied.
struct TablePlan {
  TableDefinition Table;  ///< As what it is made; its columns are those of the source, in order.
  Query Rows;             ///< The rows of the source, in the order in which they are added.
};

struct CopyPlan {
  std::vector<TablePlan> Tables;
  std::int64_t RowCount = 0;
};

/// Plans to copy every table of `source`, all columns and all rows, into a file of the kind
/// `target`. Tables of a calendar are made as CalendarTables says, of the columns that they have.
/// The columns that it does not know get the type that the source declares when their values are of
/// it, else the narrowest that holds them all. A text becomes as wide as its longest needs.
///
/// All rows are read for that. Throws DatabaseError when a column holds what no store gives.
CopyPlan PlanCopy(Store& source, FileKind target, const CopyObserver& observer);

}  // namespace veyra
