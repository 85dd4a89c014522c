#include "forms/handler_guard.h"

#include <string>

#include "data/errors.h"

namespace veyra {
namespace {

std::string ReportText(const std::exception& failure) {
  if (dynamic_cast<const Error*>(&failure) != nullptr) {
    return failure.what();
  }
  return std::string("The program met a fault of its own and has broken off what it was doing.") +
         kLineBreak + kLineBreak + failure.what() + kLineBreak + kLineBreak +
         "What was saved before is kept. If this happens again, close the program and start it "
         "anew.";
}

}  // namespace

Message StandardReport(const std::exception& failure) {
  return {.Text = ReportText(failure), .Choice = Buttons::Ok, .Sign = Icon::Critical};
}

void HandlerGuard::Run(const std::function<void()>& handler) const {
  if (held_) {
    return;
  }
  try {
    handler();
  } catch (const std::exception& failure) {
    dialogs_.MsgBox(StandardReport(failure));
    if (dynamic_cast<const FileReplacedError*>(&failure) != nullptr) {
      OfferToOpenAnew();
    }
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
