#include "app/startup.h"

#include "app/file_opener.h"
#include "app/other_desk.h"
#include "data/color_settings.h"
#include "data/desk_note.h"
#include "data/errors.h"
#include "data/file_name.h"
#include "data/schema.h"
#include "forms/handler_guard.h"
#include "logic/slots.h"

namespace veyra {
namespace {

constexpr int kReadByLines = 2;
constexpr int kRecordLength = 80;
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

/// The folder as an operator may have typed it, less what a text editor leaves around it.
std::string FolderOf(std::string line) {
  if (line.starts_with(kByteOrderMark)) {
    line.erase(0, 3);
  }
  line.erase(line.find_last_not_of(" \t") + 1);
  return line;
}

void ReadDataFolder(Session& session, Dialogs& dialogs) {
  Files files(session.AppFolder.string(), dialogs);
  std::string path_file = session.AppFolder.string() + "\\path.txt";
  const int handle = files.FileOpener(path_file, kReadByLines, kRecordLength, false);
  if (handle == 0) {
    return;
  }
  if (files.AtEnd(handle)) {
    // It names no folder, so that nothing is lost: it counts as missing, and is made in the same
    // way, to be read by the next start.
    files.Close(handle);
    files.FillEmptyFile(path_file);
    return;
  }
  session.DataFolder = NativePath(FolderOf(files.ReadLine(handle)));
  files.Close(handle);
}

/// Before anything is read, so that nothing of what they change is missed.
void ListenToOtherDesks(Session& session) {
  const bool is_shared = session.ResCon->Feed() != nullptr;
  session.DeskNote = is_shared ? DeskNoteOf(CalendarFileOf(session)) : std::filesystem::path();
}

/// The report is not a failure: the calendar opens all the same.
void TellOfTheOpening(Session& session, Dialogs& dialogs) {
  if (const auto notice = session.ResCon->TakeNotice()) {
    Message message = StandardReport(Error(*notice));
    message.Sign = Icon::Exclamation;
    dialogs.MsgBox(message);
  }
}

}  // namespace

bool StartUp(Session& session, frmCalendar& calendar, Dialogs& dialogs,
             const std::filesystem::path& app_folder, const ShowRunning& show_running) {
  modRes::SlotLabels(session.SlotLabel);
  session.AppFolder = app_folder;
  ReadDataFolder(session, dialogs);
  session.IsLoading = true;
  session.PrintLayoutOn = false;
  session.CurRmID = 0;
  session.DayOpener = Opener::MonthWindow;
  if ((show_running && show_running(session.DataFolder)) ||
      !MayShareCalendar(CalendarFileOf(session), dialogs)) {
    return false;
  }
  CreateResCon(session);
  ListenToOtherDesks(session);
  TellOfTheOpening(session, dialogs);
  CreateVeyraCon(session);
  EnsureSettingsRow(session);
  EnsureMultKeyColumn(session);
  EnsureTodayBColorColumn(session);
  calendar.LoadFacilityBox();
  LoadColorSettings(*session.ResCon, session.CurrentColors, session.StoredColors);
  try {
    calendar.ApplyHeaderColors();
    calendar.SelectActiveFacility();
    calendar.ShowCurrentMonth();
  } catch (const ColorError& error) {
    throw ExplainedColorError(*session.ResCon, error);
  }
  session.IsLoading = false;
  return true;
}

void OpenCalendarAnew(Session& session, frmCalendar& calendar, Dialogs& dialogs) {
  ReopenResCon(session);
  ListenToOtherDesks(session);
  TellOfTheOpening(session, dialogs);
  EnsureSettingsRow(session);
  EnsureMultKeyColumn(session);
  EnsureTodayBColorColumn(session);
  calendar.LoadFacilityBox();
  calendar.SelectActiveFacility();
}

}  // namespace veyra
