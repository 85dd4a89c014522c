#include "app/end_requests.h"

#include <signal.h>
#include <stdlib.h>

#include <QApplication>
#include <QEvent>
#include <QSocketNotifier>

#include "app/program.h"

namespace veyra {

EndRequests::EndRequests(Program& program)
    : program_(program),
      signals_({SIGTERM, SIGHUP, SIGINT}),
      notifier_(std::make_unique<QSocketNotifier>(signals_.Descriptor(), QSocketNotifier::Read)),
      at_exit_(new AtExit{&program}) {
  connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
    signals_.Drain();
    End();
  });
  qApp->installEventFilter(this);
  // What is registered cannot be taken back, so it outlives this object, which says so in it.
  on_exit(CloseAtExit, at_exit_);
}

EndRequests::~EndRequests() {
  at_exit_->Open = nullptr;
}

/// The session manager asks the application to quit. The toolkit would try to close all windows,
/// which those that wait for another one refuse.
bool EndRequests::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::Quit) {
    End();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

void EndRequests::CloseAtExit(int, void* at_exit) {
  const std::unique_ptr<AtExit> owned(static_cast<AtExit*>(at_exit));
  if (owned->Open != nullptr) {
    owned->Open->CloseDatabases();
  }
}

void EndRequests::End() {
  were_made_ = true;
  program_.End();
}

}  // namespace veyra
