#pragma once

#include <QObject>
#include <memory>

#include "app/signal_pipe.h"

class QSocketNotifier;

namespace veyra {

class Program;

/// Hears when the system wants the program to end, and ends it in good order, so that a calendar
/// that was open is one whole file again:
///
///   SIGTERM, SIGHUP, SIGINT   the program is told to End; a signal that was ignored when it was
///                             started stays ignored
///   the end of the session    the same
///   the loss of the screen    the toolkit leaves by exit(): the databases are closed on that way
class EndRequests : public QObject {
 public:
  /// REQUIRES: a QApplication. `program` must outlive this.
  explicit EndRequests(Program& program);
  ~EndRequests() override;

  /// Whether the program has been told to end. Asked before the event loop is entered, which would
  /// forget it.
  bool WereMade() const { return were_made_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct AtExit {
    Program* Open = nullptr;
  };

  static void CloseAtExit(int status, void* at_exit);
  void End();

  Program& program_;
  SignalPipe signals_;
  std::unique_ptr<QSocketNotifier> notifier_;
  AtExit* at_exit_;
  bool were_made_ = false;
};

}  // namespace veyra
