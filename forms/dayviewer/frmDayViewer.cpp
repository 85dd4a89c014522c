#include "forms/dayviewer/frmDayViewer.h"

#include "data/color_settings.h"
#include "logic/help_viewer.h"
#include "logic/multiday.h"

namespace veyra {
frmDayViewer::frmDayViewer(Session& session, DayViewerView& view, Windows& windows,
                           Dialogs& dialogs, const Clock& clock)
    : session_(session), view_(view), windows_(windows), dialogs_(dialogs), clock_(clock) {}

void frmDayViewer::Form_Load() {
  session_.DayOpener = Opener::DayViewer;
  try {
    view_.ShowDay(Picture());
    FillList();
  } catch (...) {
    session_.DayOpener = Opener::MonthWindow;
    throw;
  }
}

void frmDayViewer::lstDay_MouseDown(MouseButton button, const std::vector<std::string>& selected) {
  if (button == MouseButton::Left) {
    for (const std::string& line : selected) {
      dialogs_.MsgBox({.Text = line});
    }
  } else if (button == MouseButton::Right && windows_.PrepareToOpenDay()) {
    OpenForBooking();
  }
}

void frmDayViewer::mnuHelp_Click() {
  windows_.ShowHelp(kHelpDayViewer);
}

void frmDayViewer::UndoKey() {
  windows_.Undo();
}

void frmDayViewer::PrintKey() {
  windows_.PrintDay(session_.DayDate);
}

void frmDayViewer::PrintWeekKey() {
  windows_.PrintWeek(session_.DayDate);
}

void frmDayViewer::FillList() {
  modRes::FillDayList(session_, view_, session_.DayDate);
}

void frmDayViewer::Form_Unload() {
  windows_.EnableMonthWindow(true);
  session_.DayOpener = Opener::MonthWindow;
}

DayViewerPicture frmDayViewer::Picture() const {
  const ColorSettings& colors = session_.CurrentColors;
  const bool today = session_.DayDate == clock_.Today();
  DayViewerPicture picture;
  picture.lblDay = modRes::WeekdayName(session_.DayDate);
  picture.lblDate = std::to_string(DayOf(session_.DayDate));
  picture.BackColor = ColorNumber(colors.BkGrnd, "BkGrnd");
  picture.DayColor = ColorNumber(colors.HeaderTxt, "HeaderTxt");
  picture.DateColor = today ? ColorNumber(colors.TodayColor, "TodayColor")
                            : ColorNumber(colors.DaysTxtColor, "DaysTxtColor");
  if (today) {
    picture.ListColor = ColorNumber(colors.TodayBColor, "TodayBColor");
  }
  return picture;
}

/// The viewer stays loaded, and the month window without input, until the day window has closed.
void frmDayViewer::OpenForBooking() {
  windows_.HideDayViewer();
  try {
    windows_.OpenDayWindow("  " + DateText(session_.DayDate) + " Bookings");
  } catch (...) {
    windows_.ShowDayViewer();
    throw;
  }
}

}  // namespace veyra
