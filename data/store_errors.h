#pragma once

#include <string>

#include "data/errors.h"

namespace veyra {

/// The failures that every kind of store reports in the same words. `file` is the full name of the
/// database file.
MissingItemError MissingTable(const std::string& file, const std::string& table);
MissingItemError MissingColumn(const std::string& file, const std::string& table,
                               const std::string& column);
DatabaseError TableExists(const std::string& file, const std::string& table);
DatabaseError ColumnExists(const std::string& file, const std::string& table,
                           const std::string& column);
DatabaseError OpenedForReadingOnly(const std::string& file);

/// The row is there with other values, or no longer there.
RowChangedError RowChanged(const std::string& file, const std::string& table);
RowChangedError RowRemoved(const std::string& file, const std::string& table);

/// Another file bears the name; the file that is open was overwritten; none bears the name.
FileReplacedError FileReplaced(const std::string& file);
FileReplacedError FileOverwritten(const std::string& file);
FileReplacedError FileGone(const std::string& file);

/// `cause` is the failure that left it open, a whole sentence.
OutcomeUnknownError OutcomeUnknown(const std::string& file, const Phrase& cause);

/// The table no longer holds the rows that a change rests on.
RowChangedError RowsChanged(const std::string& file, const std::string& table);

/// Runs `change`, which changes a file, and returns what it returns. Where another program does not
/// let it, the report says that nothing was saved. REQUIRES: a change that throws
/// DatabaseBusyError has not been made.
template <typename Change>
decltype(auto) SayingNothingSaved(const Change& change) {
  try {
    return change();
  } catch (DatabaseBusyError& failure) {
    failure.SetEffect(Phrase::Tr("Nothing was saved."));
    throw;
  }
}

}  // namespace veyra
