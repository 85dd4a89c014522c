#pragma once

#include <string>

#include "data/errors.h"

namespace veyra::sqlite {

/// The disk failed, not the file: the same may go well the next time.
class PassingTrouble : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// Whether a result code of SQLite says that what was read is damaged. A single failure of the disk
/// comes out as this too.
bool LooksDamaged(int code);

/// Whether a result code of SQLite says that another program holds the file.
bool IsBusy(int code);

/// Throws the failure that a result code of SQLite stands for, in words for the operator:
/// DatabaseBusyError when another program holds the file, DatabaseError for everything else.
/// `detail` is SQLite's own message; it is shown only where no better words are known.
[[noreturn]] void ThrowError(const std::string& file, int code, const std::string& detail);

}  // namespace veyra::sqlite
