#include "app/front_refresh.h"

#include <QGuiApplication>
#include <utility>

namespace veyra {

FrontRefresh::FrontRefresh(QObject* owner, const Clock& clock, Desk desk, int look)
    : QObject(owner), clock_(clock), desk_(std::move(desk)), today_(clock.Today()) {
  startTimer(look, Qt::VeryCoarseTimer);
  connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
          [this](Qt::ApplicationState state) {
            const bool is_away = state != Qt::ApplicationActive;
            if (std::exchange(was_away_, is_away) && !is_away) {
              Want();
            }
          });
}

void FrontRefresh::timerEvent(QTimerEvent*) {
  const Date today = clock_.Today();
  if (std::exchange(today_, today) != today || is_wanted_) {
    Want();
  }
}

/// Wanted no more before it is done: it may show a box, and so come back here.
void FrontRefresh::Want() {
  is_wanted_ = desk_.IsBusy();
  if (!is_wanted_) {
    desk_.ReadAnew();
  }
}

}  // namespace veyra
