#include "tools/progress_lines.h"

#include <string>
#include <utility>

namespace veyra {
namespace {

constexpr std::chrono::seconds kPause{1};

Phrase LineOf(const CopyStep& step) {
  const std::string verb = step.Verb;
  if (verb == "Copied") {
    return Phrase::Tr("Copied %1 of %2 rows", step.Rows, step.Of);
  }
  if (verb == "Compared") {
    return Phrase::Tr("Compared %1 of %2 rows", step.Rows, step.Of);
  }
  if (verb == "Checked") {
    return Phrase::Tr("Checked %1 of %2 rows", step.Rows, step.Of);
  }
  return Phrase::Tr("Read %1 of %2 rows", step.Rows, step.Of);
}

}  // namespace

ProgressLines::ProgressLines(std::ostream& terminal, Now now, Phrase::Translator language)
    : terminal_(terminal), now_(std::move(now)), language_(std::move(language)), last_(now_()) {}

void ProgressLines::Show(const CopyStep& step) {
  const auto now = now_();
  if (now - last_ < kPause) {
    return;
  }
  last_ = now;
  terminal_ << LineOf(step).TranslatedBy(language_) << std::endl;
}

}  // namespace veyra
