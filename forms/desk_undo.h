#pragma once

#include <cstdint>
#include <string>

#include "data/connection.h"
#include "forms/windows.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra {

/// The line at the foot of the windows.
class FootLine {
 public:
  virtual ~FootLine() = default;

  /// Shows the text for a while at the foot of each window that shows bookings, and has assistive
  /// programs say it.
  virtual void ShowFootLine(const Phrase& text) = 0;
};

/// Takes back what the desk did last, and tells of what it has just done.
class DeskUndo {
 public:
  /// All of them must outlive it.
  DeskUndo(Session& session, Windows& windows, FootLine& foot, Dialogs& dialogs)
      : session_(session), windows_(windows), foot_(foot), dialogs_(dialogs) {}

  /// Asks and takes it back, and fills the windows anew. Throws DatabaseError.
  void Undo();

  /// Tells, once, of what was done last. To be called when a handler has returned. Throws
  /// DatabaseError.
  void TellOfChange();

 private:
  Session& session_;
  Windows& windows_;
  FootLine& foot_;
  Dialogs& dialogs_;
  const Connection* told_of_ = nullptr;  ///< Only to be compared.
  std::int64_t told_ = 0;                ///< The number of the action told of last.
};

}  // namespace veyra
