#pragma once

#include <string>

namespace veyra {

/// The operator's web browser. Handed in, so that a test opens none.
class Browser {
 public:
  virtual ~Browser() = default;

  /// Opens the address; returns false when there is no browser that can.
  virtual bool Open(const std::string& address) = 0;
};

}  // namespace veyra
