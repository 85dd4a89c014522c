#include "forms/multiday/frmMultiDay.h"

#include <algorithm>

#include "forms/multiday/plan_line.h"
#include "logic/date_parser.h"
#include "logic/help_viewer.h"

namespace veyra {
namespace {

constexpr Twips kPickerTop = 120;
constexpr PickerPlace kBesideFrom{2160, kPickerTop, 120};
constexpr PickerPlace kBesideTo{240, kPickerTop, 3960};

}  // namespace

frmMultiDay::frmMultiDay(Session& session, MultiDayView& view, Windows& windows, Dialogs& dialogs,
                         const Clock& clock)
    : session_(session), view_(view), windows_(windows), dialogs_(dialogs), clock_(clock) {}

void frmMultiDay::Form_Load() {
  PickerTarget_ = 0;
  view_.ShowPlan(plan_);
}

void frmMultiDay::Open(const std::string& from_text, modRes::SlotRange chosen) {
  plan_.Text1[0] = from_text;
  Drop();
  view_.ShowPlan(plan_);
  ShowPlanLine();
  view_.ShowWindow();
  if (chosen.First >= modRes::kFirstSlot) {
    taken_.emplace(session_.ResCon->Rows(), chosen);
    Work();
  }
}

void frmMultiDay::Work() {
  if (!taken_) {
    return;
  }
  try {
    DoPiece(*taken_, view_);
  } catch (...) {
    taken_.reset();
    ShowPlanLine();
    throw;
  }
  ShowPlanLine();
}

void frmMultiDay::Drop() {
  taken_.reset();
  view_.KeepWorking(false);
}

void frmMultiDay::Text1_Change(std::size_t index, const std::string& text) {
  plan_.Text1.at(index) = text;
  ShowPlanLine();
}

void frmMultiDay::Text1_DblClick(std::size_t index) {
  PickerTarget_ = index;
  const Date today = clock_.Today();
  const Date selected = ParseDate(plan_.Text1.at(index), today).value_or(today);
  view_.ShowPicker(index == 1 ? kBesideTo : kBesideFrom, selected);
}

void frmMultiDay::Days_Click(std::size_t index, bool checked) {
  plan_.Days[index] = checked;
  ShowPlanLine();
}

void frmMultiDay::Calendar1_DblClick(Date selected) {
  plan_.Text1.at(PickerTarget_) = DateText(selected);
  view_.ShowPlan(plan_);
  ShowPlanLine();
  view_.HidePicker(false);
}

void frmMultiDay::Calendar1_Dismiss() {
  view_.HidePicker(true);
}

void frmMultiDay::Command1_Click() {
  session_.PlannedDayCount = 0;
  if (IsComplete()) {
    session_.PlannedDayCount =
        modRes::CountPlannedDates(modRes::RangeOfPlan(plan_, clock_.Today()));
  } else {
    windows_.SelectSingleBooking();
  }
  if (session_.PlannedDayCount > 0) {
    AnnounceDays();
  }
  LeaveWindow();
}

void frmMultiDay::Command2_Click() {
  std::fill(plan_.Days.begin(), plan_.Days.end(), true);
  view_.ShowPlan(plan_);
  ShowPlanLine();
}

void frmMultiDay::Command3_Click() {
  view_.HidePicker(false);
}

void frmMultiDay::HelpKey() {
  windows_.ShowHelp(kHelpFile);
}

void frmMultiDay::LeaveWindow() {
  Drop();
  view_.HidePicker(false);
  windows_.EnableDayWindow(true);
  view_.HideWindow();
}

/// The order of the two dates does not matter here: a reversed range is complete and has no date.
bool frmMultiDay::IsComplete() const {
  const Date today = clock_.Today();
  return std::find(plan_.Days.begin(), plan_.Days.end(), true) != plan_.Days.end() &&
         ParseDate(plan_.Text1[0], today) && ParseDate(plan_.Text1[1], today);
}

void frmMultiDay::AnnounceDays() {
  dialogs_.MsgBox({.Text = std::to_string(session_.PlannedDayCount) +
                           " Days will be Scheduled for the Times Selected.",
                   .Sign = Icon::Information});
}

void frmMultiDay::ShowPlanLine() {
  view_.ShowPlanLine(
      DescribePlan(plan_, clock_.Today(), session_.SlotLabel, taken_ ? &*taken_ : nullptr));
}

}  // namespace veyra
