#include "forms/handler_guard.h"

#include <string>

#include "data/errors.h"

namespace veyra {
namespace {

constexpr const char* kMayBeOld =
    "What the windows show could not be read anew and may be old: look again before you rely on "
    "it.";

std::string Lines(const Report& report) {
  std::string lines;
  for (const std::string& line : {report.File, report.Cause, report.Effect, report.Advice}) {
    if (!line.empty()) {
      lines += (lines.empty() ? "" : kLineBreak) + line;
    }
  }
  return lines;
}

std::string ReportText(const std::exception& failure) {
  if (const auto* error = dynamic_cast<const Error*>(&failure)) {
    return Lines(error->report());
  }
  return std::string("An internal error has stopped what the program was doing.") + kLineBreak +
         kLineBreak + failure.what() + kLineBreak + kLineBreak +
         "What was saved before is kept. If this happens again, close the program and start it "
         "anew.";
}

/// Counts a handler that runs.
class Running {
 public:
  explicit Running(int& count) : count_(count) { ++count_; }
  ~Running() { --count_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  int& count_;
};

}  // namespace

Message StandardReport(const std::exception& failure) {
  return {.Text = ReportText(failure), .Choice = Buttons::Ok, .Sign = Icon::Critical};
}

void HandlerGuard::Run(const std::function<void()>& handler) const {
  if (held_) {
    return;
  }
  const Running running(running_);
  try {
    handler();
    if (tell_) {
      tell_();
    }
  } catch (const std::exception& failure) {
    Message report = StandardReport(failure);
    if (!IsFilledAnew()) {
      report.Text += kLineBreak + std::string(kMayBeOld);
    }
    dialogs_.MsgBox(report);
    if (dynamic_cast<const FileReplacedError*>(&failure) != nullptr) {
      OfferToOpenAnew();
    }
  }
}

/// What keeps it from being filled anew is most likely what has just failed, and is reported as
/// such.
bool HandlerGuard::IsFilledAnew() const {
  try {
    if (fill_anew_) {
      fill_anew_();
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void HandlerGuard::OfferToOpenAnew() const {
  if (!open_anew_ || dialogs_.MsgBox({.Text = "Open the calendar file anew now?",
                                      .Choice = Buttons::YesNo,
                                      .Sign = Icon::Question}) != Answer::Yes) {
    return;
  }
  try {
    open_anew_();
  } catch (const std::exception& failure) {
    dialogs_.MsgBox(StandardReport(failure));
  }
}

}  // namespace veyra
