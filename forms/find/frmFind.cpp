#include "forms/find/frmFind.h"

#include <vector>

namespace veyra {
namespace {

std::vector<Phrase> Lines(const modRes::SlotLabelTable& labels,
                          const std::vector<modRes::FoundBooking>& found) {
  std::vector<Phrase> lines;
  for (const modRes::FoundBooking& booking : found) {
    lines.push_back(modRes::FoundLine(labels, booking));
  }
  return lines;
}

Phrase Count(std::size_t found) {
  return found >= modRes::BookingFinder::kMost
             ? Phrase::Tr("the first %1", modRes::BookingFinder::kMost)
             : Phrase(std::to_string(found));
}

}  // namespace

frmFind::frmFind(Session& session, FindView& view, Windows& windows, const Clock& clock)
    : session_(session), view_(view), windows_(windows) {
  finder_.emplace(session.ResCon->Rows(), clock.Today());
}

void frmFind::Form_Load() {
  Show();
  view_.KeepWorking(true);
}

/// What has been read is looked through at once, so that the lines follow the keys.
void frmFind::Text1_Change(const std::string& text) {
  if (!finder_) {
    return;
  }
  finder_->LookFor(text);
  DoPiece(*finder_, view_);
  Show();
}

void frmFind::Work() {
  if (!finder_) {
    return;
  }
  DoPiece(*finder_, view_);
  const std::size_t found = finder_->Upcoming().size() + finder_->Past().size();
  if (found != shown_ || finder_->IsDone() != shown_done_) {
    Show();
  }
}

void frmFind::List1_Chosen(std::size_t line) {
  if (!finder_) {
    return;
  }
  const std::size_t upcoming = finder_->Upcoming().size();
  const modRes::FoundBooking booking =
      line < upcoming ? finder_->Upcoming().at(line) : finder_->Past().at(line - upcoming);
  view_.KeepWorking(false);
  view_.CloseWindow();
  windows_.OpenDayOf(booking.Facility, booking.Day);
}

void frmFind::Drop() {
  if (finder_) {
    finder_.reset();
    view_.CloseWindow();
  }
}

void frmFind::Form_Unload() {
  finder_.reset();
  view_.KeepWorking(false);
  windows_.EnableMonthWindow(true);
}

void frmFind::Show() {
  shown_ = finder_->Upcoming().size() + finder_->Past().size();
  shown_done_ = finder_->IsDone();
  view_.ShowFound({Lines(session_.SlotLabel, finder_->Upcoming()),
                   Lines(session_.SlotLabel, finder_->Past()), State()});
}

Phrase frmFind::State() const {
  if (!finder_->IsLooking()) {
    return Phrase::Tr("Type part of a guest's or an event's name.");
  }
  if (!finder_->IsDone()) {
    return Phrase::Tr("Looking ...");
  }
  if (shown_ == 0) {
    return Phrase::Tr("No booking has such a name.");
  }
  return Phrase::Tr("To come: %1. Past: %2. Enter opens the day.",
                    Count(finder_->Upcoming().size()), Count(finder_->Past().size()));
}

}  // namespace veyra
