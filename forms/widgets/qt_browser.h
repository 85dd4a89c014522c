#pragma once

#include <string>

#include "forms/browser.h"

namespace veyra {

/// The browser that the operator's desktop opens links with.
class QtBrowser : public Browser {
 public:
  bool Open(const std::string& address) override;
};

}  // namespace veyra
