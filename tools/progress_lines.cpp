#include "tools/progress_lines.h"

#include <utility>

namespace veyra {
namespace {

constexpr std::chrono::seconds kPause{1};

}  // namespace

ProgressLines::ProgressLines(std::ostream& terminal, Now now)
    : terminal_(terminal), now_(std::move(now)), last_(now_()) {}

void ProgressLines::Show(const CopyStep& step) {
  const auto now = now_();
  if (now - last_ < kPause) {
    return;
  }
  last_ = now;
  terminal_ << step.Verb << ' ' << step.Rows << " of " << step.Of << " rows" << std::endl;
}

}  // namespace veyra
