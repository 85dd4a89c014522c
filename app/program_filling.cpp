#include <QApplication>

#include "app/day_form.h"
#include "app/program.h"
#include "forms/board/frmBoard.h"
#include "forms/board/qt_board_window.h"
#include "forms/dayviewer/frmDayViewer.h"
#include "forms/dayviewer/qt_dayviewer_window.h"
#include "forms/multiday/frmMultiDay.h"
#include "forms/multiday/qt_multiday_window.h"
#include "logic/facilities.h"

namespace veyra {

void Program::ShowWhatIsStored() {
  if (!modRes::CurrentFacility(session_)) {
    month_.LoadFacilityBox();
    month_.SelectActiveFacility();
  }
  FillAnew();
}

void Program::FillAnew() {
  if (!session_.ResCon) {
    return;
  }
  month_.ReloadFacilities();
  month_.RefreshMonth();
  ShowDayAnew();
  ShowListsAnew();
}

void Program::ShowDayAnew() {
  if (viewer_ && session_.DayOpener == Opener::DayViewer) {
    viewer_->Logic.FillList();
  }
  if (day_) {
    day_->Logic.ShowAnew();
  }
}

void Program::ShowListsAnew() {
  if (board_ && board_->Window.isVisible()) {
    board_->Logic.Fill();
  }
}

/// The inner ones first: each gives way to the one from which it was opened.
void Program::LeaveDay() {
  if (multi_day_ && multi_day_->Window.isVisible()) {
    multi_day_->Logic.LeaveWindow();
  }
  if (day_) {
    day_->Window.close();
  }
  if (viewer_ && session_.DayOpener == Opener::DayViewer) {
    viewer_->Window.close();
  }
}

bool Program::IsInTheMiddle() const {
  return QApplication::activeModalWidget() != nullptr ||
         QApplication::activePopupWidget() != nullptr || sign_.IsWaiting() ||
         (day_ && day_->Window.IsDragging());
}

}  // namespace veyra
