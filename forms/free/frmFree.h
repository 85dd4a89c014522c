#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "forms/free/free_view.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/free_times.h"
#include "logic/session.h"

namespace veyra {

/// The window of free times: "two hours on a Saturday afternoon, any hall". It looks for them piece
/// by piece while the operator says what he wants.
class frmFree {
 public:
  /// So many are shown at most.
  static constexpr std::size_t kMost = 200;

  /// All of them must outlive the window; no booking may be changed while it is open. `fields` is
  /// what they held when the window was open last, and is kept up to date. Throws DatabaseError.
  frmFree(Session& session, FreeFields& fields, FreeView& view, Windows& windows,
          const Clock& clock);

  void Form_Load();

  /// The operator has changed a field.
  void Fields_Change(const FreeFields& fields);

  /// Goes on with what is to be done, for a moment. Throws DatabaseError; it goes on no more then.
  void Work();

  /// A line was chosen, counted from 0: closes the window, opens the day and chooses as many rows
  /// as were asked for, from the line's first one on. REQUIRES: it is shown.
  void List1_Chosen(std::size_t line);

  void HelpKey();  ///< F1

  /// Lets go of the calendar, which is about to be closed, and takes the window off the screen.
  void Drop();

  /// The window goes: the month window takes input again.
  void Form_Unload();

 private:
  void Search();
  Phrase Fault() const;
  Phrase FaultOfDates() const;
  Phrase FaultOfHours() const;
  modRes::FreeTimeWish Wish() const;
  std::vector<Facility> Ticked() const;
  void Show();
  Phrase State() const;

  Session& session_;
  FreeFields& fields_;
  FreeView& view_;
  Windows& windows_;
  const Clock& clock_;
  std::vector<Facility> facilities_;
  std::optional<modRes::FreeTimeFinder> finder_;  ///< Nothing once the window has gone.
  std::size_t shown_ = 0;                         ///< How many lines are shown,
  bool shown_done_ = false;                       ///< and whether as all that there are.
};

}  // namespace veyra
