#include "data/errors.h"

#include <string>
#include <utility>

namespace veyra {

namespace {

void AppendLine(std::string& text, const std::string& line) {
  if (line.empty()) {
    return;
  }
  if (!text.empty()) {
    text += '\n';
  }
  text += line;
}

std::string WholeText(const Report& report) {
  std::string text;
  AppendLine(text, report.File);
  AppendLine(text, report.Cause);
  AppendLine(text, report.Effect);
  AppendLine(text, report.Advice);
  return text;
}

}  // namespace

Error::Error(Report report) : std::runtime_error(WholeText(report)), report_(std::move(report)) {}

}  // namespace veyra
