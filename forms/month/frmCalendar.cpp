#include "forms/month/frmCalendar.h"

#include <algorithm>

#include "data/color_settings.h"
#include "data/shown_name.h"
#include "data/text.h"
#include "forms/month/month_cells.h"
#include "forms/month/month_sheet.h"
#include "forms/print/print_messages.h"
#include "logic/delete_facility.h"
#include "logic/facilities.h"
#include "logic/help_viewer.h"
#include "logic/name_length.h"
#include "logic/name_matches.h"

namespace veyra {
namespace {

constexpr int kEnterKey = 13;

Message NoFacility() {
  return {.Text = "There is no Facility Selected", .Sign = Icon::Critical};
}

}  // namespace

frmCalendar::frmCalendar(Session& session, MonthView& view, Windows& windows, Dialogs& dialogs,
                         const Clock& clock, SheetPrinter& printer)
    : session_(session),
      view_(view),
      windows_(windows),
      dialogs_(dialogs),
      clock_(clock),
      printer_(printer) {}

void frmCalendar::LoadFacilityBox() {
  modRes::LoadFacilities(session_, Combo1_);
  ShowFacilityBox();
}

void frmCalendar::ApplyHeaderColors() {
  const ColorSettings& colors = session_.CurrentColors;
  view_.ShowColors(ColorNumber(colors.BkGrnd, "BkGrnd"),
                   ColorNumber(colors.HeaderTxt, "HeaderTxt"));
}

void frmCalendar::SelectActiveFacility() {
  modRes::SelectFacility(session_, Combo1_.Text);
  ShowRoom(Combo1_.Text);
}

void frmCalendar::ShowCurrentMonth() {
  const Date today = clock_.Today();
  session_.CurMonth = MonthOf(today);
  session_.CurYear = YearOf(today);
  view_.PlaceAtTopCentre();
  RefreshMonth();
}

void frmCalendar::Command1_Click() {
  const bool december = session_.CurMonth == 12;
  TurnTo(december ? session_.CurYear + 1 : session_.CurYear, december ? 1 : session_.CurMonth + 1);
}

void frmCalendar::Command2_Click() {
  const bool january = session_.CurMonth == 1;
  TurnTo(january ? session_.CurYear - 1 : session_.CurYear, january ? 12 : session_.CurMonth - 1);
}

void frmCalendar::Command4_Click() {
  Combo1_LostFocus();
  const bool is_gone = session_.CurRmID != 0 && !modRes::CurrentFacility(session_);
  if (Combo1_.Items.empty() || is_gone) {
    dialogs_.MsgBox(NoFacility());
    return;
  }
  const Answer answer =
      dialogs_.MsgBox({.Text = "Are you Sure you want to Delete " + ShownName(lblRoom_) +
                               " and All Events associated with it?",
                       .Choice = Buttons::YesNo,
                       .Sign = Icon::Critical,
                       .Details = modRes::FacilityDetails(session_, clock_),
                       .Default = Answer::No});
  if (answer != Answer::Yes) {
    return;
  }
  // The entry to be removed is the one that the box names.
  modRes::ShowCurrentFacility(session_, Combo1_);
  modRes::DeleteFacility(session_, Combo1_, lblRoom_, dialogs_);
  ShowFacilityBox();
  view_.ShowRoom(lblRoom_);
  RefreshMonth();
}

void frmCalendar::Command3_Click() {
  const Sheet sheet = MonthSheet(view_.Shown(), lblRoom_, session_.CurrentColors);
  const std::optional<std::string> chosen = ChoosePrinterAndHideControls(sheet);
  if (!chosen) {
    return;
  }
  const std::optional<std::string> printer = PrinterNamed(printer_.PrinterNames(), *chosen);
  if (!printer) {
    throw NoSuchPrinter(*chosen, sheet);
  }
  printer_.UsePrinter(*printer);
  printer_.Print(sheet);
  dialogs_.MsgBox(
      {.Text = "Print Complete, Click on Form to get Controls back.", .Sign = Icon::Information});
}

void frmCalendar::Form_Click() {
  RestoreAfterPrint();
}

void frmCalendar::Label2_Click() {
  RestoreAfterPrint();
}

void frmCalendar::lblMonth_Click() {
  RestoreAfterPrint();
}

void frmCalendar::lblRoom_Click() {
  RestoreAfterPrint();
}

void frmCalendar::Combo1_Change(const std::string& text) {
  Combo1_.Text = text;
  view_.ShowFacilityHint(modRes::FacilityNameHint(session_, Combo1_.Text));
}

void frmCalendar::Combo1_Click(const std::string& text) {
  session_.IsLoading = false;
  try {
    modRes::SelectFacility(session_, text);
  } catch (...) {
    // The box must not name a facility that is not the current one.
    ShowFacilityBox();
    throw;
  }
  Combo1_.Text = text;
  modRes::UseName(Combo1_.Used, text);
  ShowFacilityBox();
  ShowRoom(text);
  if (modRes::CurrentFacility(session_) != text) {
    ShowWhatIsLeft();
  }
  RefreshMonth();
}

void frmCalendar::Combo1_KeyPress(int key) {
  if (key != kEnterKey || AdoptListedName()) {
    return;
  }
  Combo1_.Text = ProperCase(Combo1_.Text);
  ShowFacilityBox();
  const Phrase too_long = modRes::FacilityNameTooLong(session_, Combo1_.Text);
  view_.ShowFacilityHint(too_long);
  if (!too_long.IsEmpty()) {
    dialogs_.MsgBox({.Text = too_long, .Sign = Icon::Exclamation});
    return;
  }
  const Answer answer =
      dialogs_.MsgBox({.Text = "Do you want to add a new Facility called " + Combo1_.Text + "?",
                       .Choice = Buttons::YesNo,
                       .Sign = Icon::Exclamation});
  if (answer == Answer::Yes) {
    AddTypedFacility();
  } else {
    modRes::ShowCurrentFacility(session_, Combo1_);
    ShowFacilityBox();
  }
}

void frmCalendar::Combo1_GotFocus() {
  if (!Combo1_.Text.empty()) {
    view_.SelectAllText();
  }
}

void frmCalendar::Combo1_LostFocus() {
  if (Combo1_.Text.empty()) {
    return;
  }
  const std::string name = modRes::CurrentFacility(session_).value_or("");
  if (Combo1_.Text != name) {
    Combo1_.Text = name;
    ShowFacilityBox();
  }
}

void frmCalendar::lstDay_MouseDown(int index, MouseButton button) {
  Combo1_LostFocus();
  if (button == MouseButton::Right) {
    OpenForViewing(index);
  } else if (button == MouseButton::Left && PrepareToOpenDay()) {
    OpenForBooking(index);
  }
}

bool frmCalendar::PrepareToOpenDay() {
  if (Combo1_.Text.empty() || !modRes::CurrentFacility(session_)) {
    dialogs_.MsgBox(NoFacility());
    return false;
  }
  if (session_.PrintLayoutOn) {
    session_.PrintLayoutOn = false;
    return false;
  }
  view_.ShowControls(true);
  if (session_.IsLoading) {
    session_.IsLoading = false;
    return false;
  }
  return true;
}

void frmCalendar::mnuContents_Click() {
  windows_.ShowHelp(kHelpContents);
}

void frmCalendar::mnuOver_Click() {
  windows_.ShowHelp(kHelpOverview);
}

void frmCalendar::mnuCalendar_Click() {
  windows_.ShowHelp(kHelpCalendar);
}

void frmCalendar::mnuAbout_Click() {
  windows_.EnableMonthWindow(false);
  EnableAgainIfThrown([this] { windows_.OpenAbout(); });
}

void frmCalendar::mnuSettings_Click() {
  windows_.EnableMonthWindow(false);
  EnableAgainIfThrown([this] { windows_.OpenSettings(); });
}

void frmCalendar::Form_Unload() {
  windows_.EndProgram();
}

void frmCalendar::RefreshMonth() {
  modRes::RefreshMonth(session_, clock_, view_, session_.CurMonth);
}

void frmCalendar::ShowDay(Date day) {
  TurnTo(YearOf(day), MonthOf(day));
  view_.ChooseDay(CellOf(day));
}

Date frmCalendar::ChosenDate() const {
  const Date first_day = MakeDate(session_.CurYear, session_.CurMonth, 1).value();
  return DayOfShown(std::max(view_.ChosenDay(), CellOf(first_day)));
}

void frmCalendar::OpenDay(const std::string& facility, Date day) {
  PickFacility(facility);
  if (modRes::CurrentFacility(session_) != facility) {
    dialogs_.MsgBox(
        {.Text = Phrase::Tr("The facility %1 is not there any more.", ShownName(facility)),
         .Sign = Icon::Exclamation});
    return;
  }
  ShowDay(day);
  session_.PrintLayoutOn = false;
  lstDay_MouseDown(CellOf(day), MouseButton::Left);
}

void frmCalendar::ReloadFacilities() {
  modRes::ReloadFacilities(session_, Combo1_);
  ShowFacilityBox();
  if (!Combo1_.Text.empty()) {
    ShowRoom(Combo1_.Text);
  }
}

void frmCalendar::Repaint() {
  ApplyHeaderColors();
  RefreshMonth();
}

void frmCalendar::RestoreAfterPrint() {
  view_.ShowControls(true);
}

/// The device name of the chosen printer; nothing when there is none, which the operator was told.
std::optional<std::string> frmCalendar::ChoosePrinterAndHideControls(const Sheet& sheet) {
  try {
    std::string chosen = printer_.AskForPrinter(sheet);
    session_.PrintLayoutOn = true;
    view_.ShowControls(false);
    return chosen;
  } catch (const std::exception& failure) {
    dialogs_.MsgBox(PrintFailure(failure));
    return std::nullopt;
  }
}

void frmCalendar::TurnTo(int year, int month) {
  session_.IsLoading = false;
  if (year < kFirstYear || year > kLastYear) {
    return;
  }
  const int old_year = session_.CurYear;
  const int old_month = session_.CurMonth;
  session_.CurYear = year;
  session_.CurMonth = month;
  try {
    RefreshMonth();
  } catch (...) {
    // The old month still stands on the screen, and a click on it must open its own days.
    session_.CurYear = old_year;
    session_.CurMonth = old_month;
    throw;
  }
}

bool frmCalendar::AdoptListedName() {
  if (Combo1_.Text.empty()) {
    return true;
  }
  const std::string wanted = UpperCase(Combo1_.Text);
  const auto listed =
      std::find_if(Combo1_.Items.begin(), Combo1_.Items.end(),
                   [&wanted](const std::string& item) { return UpperCase(item) == wanted; });
  if (listed == Combo1_.Items.end()) {
    return false;
  }
  Combo1_.Text = *listed;
  ShowFacilityBox();
  return true;
}

void frmCalendar::AddTypedFacility() {
  session_.IsLoading = false;
  modRes::AddFacility(session_, Combo1_);
  modRes::UseName(Combo1_.Used, Combo1_.Text);
  ShowFacilityBox();
  ShowRoom(Combo1_.Text);
  RefreshMonth();
}

void frmCalendar::OpenForBooking(int index) {
  const Date day = DayOfShown(index);
  view_.FocusPrintButton();
  windows_.HideMonthWindow();
  session_.DayDate = day;
  session_.DayCellIndex = index;
  try {
    windows_.OpenDayWindow("  " + DateText(day) + " Bookings");
  } catch (...) {
    windows_.ShowMonthWindow();
    throw;
  }
}

void frmCalendar::OpenForViewing(int index) {
  windows_.EnableMonthWindow(false);
  session_.DayDate = DayOfShown(index);
  session_.DayCellIndex = index;
  EnableAgainIfThrown(
      [this] { windows_.OpenDayViewer("  " + DateText(session_.DayDate) + " Day Viewer"); });
}

/// A window that failed to open cannot enable this one when it closes.
void frmCalendar::EnableAgainIfThrown(const std::function<void()>& open) {
  try {
    open();
  } catch (...) {
    windows_.EnableMonthWindow(true);
    throw;
  }
}

/// A facility that is gone is offered no more.
void frmCalendar::ShowFacilityBox() {
  std::erase_if(Combo1_.Used, [this](const std::string& name) {
    return std::find(Combo1_.Items.begin(), Combo1_.Items.end(), name) == Combo1_.Items.end();
  });
  view_.ShowFacilityBox(Combo1_);
}

/// The facility that was picked is no longer there: the one that was current stays so.
void frmCalendar::ShowWhatIsLeft() {
  ReloadFacilities();
  modRes::SelectFacility(session_, Combo1_.Text);
}

Date frmCalendar::DayOfShown(int index) const {
  return DateOfCell(session_.CurYear, session_.CurMonth, index);
}

void frmCalendar::ShowRoom(const std::string& name) {
  lblRoom_ = name;
  view_.ShowRoom(lblRoom_);
}

}  // namespace veyra
