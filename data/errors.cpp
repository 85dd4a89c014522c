#include "data/errors.h"

#include <string>
#include <utility>

namespace veyra {

namespace {

std::string WholeText(const Report& report) {
  return ReportText(report, "\n").English();
}

}  // namespace

Phrase ReportText(const Report& report, const char* line_break) {
  return JoinedLines({report.File, report.Cause, report.Effect, report.Advice}, line_break);
}

Error::Error(Report report) : report_(std::move(report)), text_(WholeText(report_)) {}

void Error::SetEffect(const Phrase& effect) {
  report_.Effect = effect;
  text_ = WholeText(report_);
}

}  // namespace veyra
