#pragma once

#include <memory>
#include <string>
#include <vector>

namespace veyra {

/// The names of all guests, and what they stand for.
struct GuestNames {
  std::shared_ptr<const void> Mark;  ///< Of the table that they were read from: see Store.
  bool HasGuests = false;            ///< There are rows, if only some without a name.
  std::vector<std::string> Names;    ///< In the table's own order.
};

}  // namespace veyra
