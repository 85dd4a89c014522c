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

Error::Error(Report report) : report_(std::move(report)), text_(WholeText(report_)) {}

void Error::SetEffect(const std::string& effect) {
  report_.Effect = effect;
  text_ = WholeText(report_);
}

}  // namespace veyra
