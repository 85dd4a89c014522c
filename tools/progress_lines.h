#pragma once

#include <chrono>
#include <functional>
#include <ostream>

#include "tools/copy_plan.h"
#include "tools/translation.h"

namespace veyra {

/// Tells somebody who waits at a terminal how far a copy has come: "Copied 1200 of 2000 rows". The
/// first line comes after a second, further ones at least a second apart.
class ProgressLines {
 public:
  using Now = std::function<std::chrono::steady_clock::time_point()>;

  explicit ProgressLines(std::ostream& terminal, Now now = std::chrono::steady_clock::now,
                         Phrase::Translator language = Untranslated);

  void Show(const CopyStep& step);

 private:
  std::ostream& terminal_;
  Now now_;
  Phrase::Translator language_;
  std::chrono::steady_clock::time_point last_;
};

}  // namespace veyra
