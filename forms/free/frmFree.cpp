#include "forms/free/frmFree.h"

#include <algorithm>
#include <iterator>

#include "data/shown_name.h"
#include "logic/date_parser.h"
#include "logic/help_viewer.h"
#include "logic/multiday.h"

namespace veyra {
namespace {

/// The dates at first: four weeks.
constexpr std::int64_t kFirstDays = 27;

Phrase EndLabel(modRes::TimeSlot last) {
  return last == modRes::kLastSlot ? Phrase::Tr("midnight") : modRes::LongSlotLabel(last + 1);
}

}  // namespace

frmFree::frmFree(Session& session, FreeFields& fields, FreeView& view, Windows& windows,
                 const Clock& clock)
    : session_(session),
      fields_(fields),
      view_(view),
      windows_(windows),
      clock_(clock),
      facilities_(ReadFacilities(session.ResCon->Rows())) {
  // One more tells that there are more.
  finder_.emplace(session.ResCon->Rows(), kMost + 1);
  if (fields_.Text1[0].empty() && fields_.Text1[1].empty()) {
    const Date today = clock.Today();
    fields_.Text1 = {DateText(today), DateText(AddDays(today, kFirstDays))};
  }
}

void frmFree::Form_Load() {
  view_.ShowFields(fields_, facilities_);
  Search();
}

void frmFree::Fields_Change(const FreeFields& fields) {
  fields_ = fields;
  if (finder_) {
    Search();
  }
}

/// What can be found at once is shown at once, so that the lines follow the fields.
void frmFree::Search() {
  finder_->Stop();
  if (Fault().IsEmpty()) {
    finder_->LookFor(Wish());
  }
  DoPiece(*finder_, view_);
  Show();
}

void frmFree::Work() {
  if (!finder_) {
    return;
  }
  DoPiece(*finder_, view_);
  if (finder_->Found().size() != shown_ || finder_->IsDone() != shown_done_) {
    Show();
  }
}

void frmFree::List1_Chosen(std::size_t line) {
  if (!finder_) {
    return;
  }
  const modRes::FreeTime free = finder_->Found().at(line);
  const std::string facility = finder_->Wish().Facilities.at(free.Place).Name;
  const modRes::TimeSlot last = free.Slots.First + finder_->Wish().HalfHours - 1;
  view_.KeepWorking(false);
  view_.CloseWindow();
  if (windows_.OpenDayOf(facility, free.Day)) {
    windows_.ChooseRows({free.Slots.First, last});
  }
}

void frmFree::HelpKey() {
  windows_.ShowHelp(kHelpFile);
}

void frmFree::Drop() {
  if (finder_) {
    finder_.reset();
    view_.CloseWindow();
  }
}

void frmFree::Form_Unload() {
  finder_.reset();
  view_.KeepWorking(false);
  windows_.EnableMonthWindow(true);
}

/// Why nothing can be looked for; empty when it can.
Phrase frmFree::Fault() const {
  if (facilities_.empty()) {
    return Phrase::Tr("There is no facility yet.");
  }
  if (Ticked().empty()) {
    return Phrase::Tr("Tick at least one facility.");
  }
  if (std::find(fields_.Days.begin(), fields_.Days.end(), true) == fields_.Days.end()) {
    return Phrase::Tr("Tick at least one weekday.");
  }
  const Phrase fault = FaultOfHours();
  return fault.IsEmpty() ? FaultOfDates() : fault;
}

Phrase frmFree::FaultOfHours() const {
  const auto [first, last] = fields_.Hours;
  if (last < first) {
    return Phrase::Tr("The hours end before they begin.");
  }
  if (last - first + 1 < fields_.HalfHours) {
    return Phrase::Tr("%1 do not fit between %2 and %3.", modRes::LengthText(fields_.HalfHours),
                      modRes::LongSlotLabel(first), EndLabel(last));
  }
  return {};
}

Phrase frmFree::FaultOfDates() const {
  const Date today = clock_.Today();
  for (const std::string& text : fields_.Text1) {
    if (!ParseDate(text, today)) {
      return Phrase::Tr("\"%1\" is not a date. Enter it as %2.", ShownName(text), DateText(today));
    }
  }
  const modRes::FreeTimeWish wish = Wish();
  if (wish.To < wish.From) {
    return Phrase::Tr("The dates end before they begin.");
  }
  const Date last = std::min(wish.To, AddDays(wish.From, 6));
  for (Date day = wish.From; day <= last; day = AddDays(day, 1)) {
    if (wish.Weekdays[WeekdayNumber(day)]) {
      return {};
    }
  }
  return Phrase::Tr("None of these dates falls on a ticked weekday.");
}

/// REQUIRES: the two texts are dates.
modRes::FreeTimeWish frmFree::Wish() const {
  const Date today = clock_.Today();
  return {.From = ParseDate(fields_.Text1[0], today).value(),
          .To = ParseDate(fields_.Text1[1], today).value(),
          .Weekdays = fields_.Days,
          .Hours = fields_.Hours,
          .HalfHours = fields_.HalfHours,
          .Facilities = Ticked()};
}

std::vector<Facility> frmFree::Ticked() const {
  std::vector<Facility> ticked;
  std::copy_if(facilities_.begin(), facilities_.end(), std::back_inserter(ticked),
               [this](const Facility& each) { return !fields_.LeftOut.contains(each.ID); });
  return ticked;
}

void frmFree::Show() {
  FreePicture picture{{}, State()};
  for (const modRes::FreeTime& free : finder_->Found()) {
    if (picture.Lines.size() < kMost) {
      picture.Lines.push_back(modRes::FreeTimeLine(session_.SlotLabel, finder_->Wish(), free));
    }
  }
  shown_ = finder_->Found().size();
  shown_done_ = finder_->IsDone();
  view_.ShowFree(picture);
}

Phrase frmFree::State() const {
  const Phrase fault = Fault();
  if (!fault.IsEmpty()) {
    return fault;
  }
  if (!finder_->IsDone()) {
    return Phrase::Tr("Looking ...");
  }
  const std::size_t found = finder_->Found().size();
  if (found == 0) {
    return Phrase::Tr("Nothing is free then for %1.", modRes::LengthText(fields_.HalfHours));
  }
  return found > kMost ? Phrase::Tr("The first %1; there are more. Enter opens the day.", kMost)
                       : Phrase::Tr("Free times: %1. Enter opens the day.", found);
}

}  // namespace veyra
