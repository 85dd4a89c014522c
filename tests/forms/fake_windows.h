#pragma once

#include <functional>
#include <string>

#include "forms/windows.h"

namespace veyra {

/// Keeps what the windows asked about each other, a line each.
class FakeWindows : public Windows {
 public:
  std::string Log;
  bool DayMayBeOpened = true;
  modRes::SlotRange ChosenRows;  ///< Those that the multiple-day window was opened for.

  /// Called where a window is loaded: it may throw, as loading may.
  std::function<void()> WhileLoading;

  void ShowMonthWindow() override { Add("show month"); }
  void HideMonthWindow() override { Add("hide month"); }
  void EnableMonthWindow(bool enabled) override { Add(enabled ? "enable month" : "disable month"); }
  void RepaintMonthWindow() override { Add("repaint month"); }
  bool PrepareToOpenDay() override { return DayMayBeOpened; }
  void OpenDayWindow(const std::string& caption) override { Load("open day", caption); }
  void EnableDayWindow(bool enabled) override { Add(enabled ? "enable day" : "disable day"); }
  void SelectSingleBooking() override { Add("single booking"); }
  void OpenDayViewer(const std::string& caption) override { Load("open viewer", caption); }
  void ShowDayViewer() override { Add("show viewer"); }
  void HideDayViewer() override { Add("hide viewer"); }
  void ShowMultiDayWindow(const std::string& from_text, modRes::SlotRange chosen) override {
    Add("show several days from " + from_text);
    ChosenRows = chosen;
  }
  void OpenSettings() override { Load("open settings", ""); }
  void OpenAbout() override { Load("open about", ""); }
  void OpenFind() override { Load("open find", ""); }
  void OpenFreeTimes() override { Load("open free times", ""); }
  void OpenDayBoard(Date day) override { Load("open board", DateText(day)); }
  bool OpenDayOf(const std::string& facility, Date day) override {
    Add("open " + DateText(day) + " of " + facility);
    return DayMayBeOpened;
  }
  void ChooseRows(modRes::SlotRange rows) override {
    Add("choose " + std::to_string(rows.First) + "-" + std::to_string(rows.Last));
  }
  void ShowHelp(int topic) override { Add("help " + std::to_string(topic)); }
  void Undo() override { Add("undo"); }
  void PrintDay(Date day) override { Add("print day " + DateText(day)); }
  void PrintWeek(Date day) override { Add("print week of " + DateText(day)); }
  void ShowWhatIsStored() override { Add("show what is stored"); }
  void ShowDayAnew() override { Add("show day anew"); }
  void ShowListsAnew() override { Add("show lists anew"); }
  void LeaveDay() override { Add("leave day"); }
  void EndProgram() override { Add("end"); }

 private:
  void Add(const std::string& line) { Log += line + "\n"; }
  void Load(const std::string& what, const std::string& caption) {
    if (WhileLoading) {
      WhileLoading();
    }
    Add(what + (caption.empty() ? "" : " \"" + caption + "\""));
  }
};

}  // namespace veyra
