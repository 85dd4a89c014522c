#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "forms/find/find_view.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/find_bookings.h"
#include "logic/session.h"

namespace veyra {

/// The find window: "When is this guest here next?" It looks through the bookings of all
/// facilities, piece by piece, while the operator types.
class frmFind {
 public:
  /// All of them must outlive the window; no booking may be changed while it is open. Throws
  /// DatabaseError.
  frmFind(Session& session, FindView& view, Windows& windows, const Clock& clock);

  void Form_Load();

  /// The operator has typed.
  void Text1_Change(const std::string& text);

  /// Goes on with what is to be done, for a moment. Throws DatabaseError; it goes on no more then.
  void Work();

  /// A line was chosen: counted from 0, the upcoming ones first. Closes the window and opens the
  /// day. REQUIRES: it is shown.
  void List1_Chosen(std::size_t line);

  /// Lets go of the calendar, which is about to be closed, and takes the window off the screen.
  void Drop();

  /// The window goes: the month window takes input again.
  void Form_Unload();

 private:
  void Show();
  Phrase State() const;

  Session& session_;
  FindView& view_;
  Windows& windows_;
  std::optional<modRes::BookingFinder> finder_;  ///< Nothing once the window has gone.
  std::size_t shown_ = 0;                        ///< How many lines are shown,
  bool shown_done_ = false;                      ///< and whether as all that there are.
};

}  // namespace veyra
