#pragma once

#include <optional>

#include "data/file_store.h"
#include "tools/copy_plan.h"

namespace veyra {

/// The value as a column of that type holds it, or nothing when it cannot.
std::optional<Value> ValueAs(ColumnType type, const Value& value);

/// Makes the planned tables in `target` and adds the rows of `source` to them, keys included, so
/// that the next new key of a table comes after its highest.
///
/// A value of another type than its column becomes one when it stands for one, the text "19" the
/// number 19. Throws DatabaseError, naming the table and the row, when it does not, or when the
/// target cannot hold the row. REQUIRES: `target` has no tables.
void CopyTables(Store& source, FileStore& target, const CopyPlan& plan,
                const CopyObserver& observer);

/// Reads both files side by side and throws DatabaseError, naming the table and the row, where they
/// differ. Dates are compared as dates, numbers by their value.
void CompareTables(Store& source, Store& target, const CopyPlan& plan,
                   const CopyObserver& observer);

/// What the rows do not show: a number that was given once is not given again, though its row is
/// deleted, and a journal that is kept goes on. REQUIRES: CopyTables was called.
void KeepNumbersAndJournal(FileStore& source, FileStore& target, const CopyPlan& plan);

}  // namespace veyra
