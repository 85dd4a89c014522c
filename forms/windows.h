#pragma once

#include <string>

namespace veyra {

/// What one window may ask about another. The windows know each other only through this.
class Windows {
 public:
  virtual ~Windows() = default;

  /// Brings the month window back to the screen.
  virtual void ShowMonthWindow() = 0;

  /// Takes the month window off the screen; it stays loaded.
  virtual void HideMonthWindow() = 0;

  /// Loads the day window for Session::DayDate and shows it under `caption`. When loading fails the
  /// exception passes through and no day window is left.
  virtual void OpenDayWindow(const std::string& caption) = 0;

  /// Ends the program, closing every window.
  virtual void EndProgram() = 0;
};

}  // namespace veyra
