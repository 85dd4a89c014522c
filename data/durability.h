#pragma once

namespace veyra {

/// When what is written to a new database is on the disk, safe from a loss of power.
enum class Durability {
  AtOnce,     ///< When the call that wrote it returns, as a Store promises.
  WhenAsked,  ///< When the caller flushes the file after closing it: many times faster, for a file
              ///< that is of no use before it is whole.
};

}  // namespace veyra
