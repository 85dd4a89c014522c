#pragma once

#include <memory>

#include "data/file_store.h"

namespace veyra {

/// A shared calendar that is being made: nobody else sees any of it before Save, and without Save
/// nothing of it is left.
class CalendarInMaking {
 public:
  virtual ~CalendarInMaking() = default;

  /// Where its tables are made and its rows added, each with its own number. A table that an
  /// administrator has made before (data/shared_calendar.h) is taken as it is when it is empty and
  /// has these columns. What fails ends all: then this can only be dropped.
  virtual FileStore& Rows() = 0;

  /// Makes it stand, all in one moment, and returns it, open for reading and writing. Throws as
  /// Store does. REQUIRES: not called before; nothing is asked of Rows afterwards.
  virtual std::unique_ptr<FileStore> Save() = 0;
};

}  // namespace veyra
