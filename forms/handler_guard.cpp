#include "forms/handler_guard.h"

#include <string>

#include "data/errors.h"

namespace veyra {
namespace {

Phrase MayBeOld() {
  return Phrase::Tr(
      "What the windows show could not be read anew and may be old: look again before you rely on "
      "it.");
}

Phrase ReportText(const std::exception& failure) {
  if (const auto* error = dynamic_cast<const Error*>(&failure)) {
    return ReportText(error->report(), kLineBreak);
  }
  return Phrase::Tr("An internal error has stopped what the program was doing.") + kLineBreak +
         kLineBreak + failure.what() + kLineBreak + kLineBreak +
         Phrase::Tr(
             "What was saved before is kept. If this happens again, close the program and "
             "start it anew.");
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
      report.Text += kLineBreak + MayBeOld();
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
  if (!open_anew_ || dialogs_.MsgBox({.Text = Phrase::Tr("Open the calendar file anew now?"),
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
