#pragma once

#include <string>

#include "forms/month/frmCalendar.h"
#include "forms/windows.h"
#include "logic/dialogs.h"
#include "logic/others_changes.h"
#include "logic/session.h"

namespace veyra {

/// Shows in the windows what other desks change in a shared calendar. Of one that is a file nobody
/// tells, and nothing happens.
class OtherDesks {
 public:
  /// All of them must outlive it.
  OtherDesks(Session& session, frmCalendar& month, Windows& windows, Dialogs& dialogs);

  /// Begins to listen to the calendar that is open now. Returns a descriptor that can be read while
  /// Take has something to take; -1 when there is none. Throws DatabaseError.
  int Listen();

  /// Listens no more: the calendar is about to be closed.
  void Drop() { feed_ = nullptr; }

  /// Takes what was told since, without waiting. Returns whether anything is to be shown.
  bool Take();

  /// Shows it in those windows that it concerns. When the calendar cannot be read nobody is told,
  /// for nobody has asked for anything: it is shown when next something is told, which a connection
  /// that is made anew does. REQUIRES: no gesture of the operator is going on, and no box is shown.
  void Show();

 private:
  void ShowWhatConcerns(const modRes::OthersChanges& changes);
  bool IsOfMonth(const modRes::OthersChanges& changes) const;
  void LeaveFacility(const std::string& name);

  Session& session_;
  frmCalendar& month_;
  Windows& windows_;
  Dialogs& dialogs_;
  ChangeFeed* feed_ = nullptr;
  modRes::OthersChanges changes_;
};

}  // namespace veyra
