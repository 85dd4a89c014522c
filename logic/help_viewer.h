#pragma once

namespace veyra {

/// The context numbers by which the windows ask for a topic; the help file maps each to a page.
inline constexpr int kHelpContents = 20;   ///< Month window, "Contents".
inline constexpr int kHelpOverview = 30;   ///< Month window, "Overview".
inline constexpr int kHelpCalendar = 60;   ///< Month window, "Calendar Help".
inline constexpr int kHelpDayViewer = 80;  ///< Day viewer, "Help".

/// No topic in particular: the page with which the help file begins. The day window's and the
/// colour window's "Help", and F1 in the multiple-day window and the about box.
inline constexpr int kHelpFile = 0;

/// Shows the program's help file.
class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  /// Shows the page of that context number in a window that stands beside all others; the first
  /// page when the help file does not map the number. Returns at once, throws nothing. Without a
  /// help file nothing happens, silently; for one that cannot be read the help window says so.
  virtual void ShowTopic(int topic) = 0;
};

}  // namespace veyra
