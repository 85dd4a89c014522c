#pragma once

#include <QObject>

#include "app/form.h"
#include "forms/day/frmDay.h"
#include "forms/day/qt_day_window.h"
#include "forms/widgets/qt_input_gate.h"

namespace veyra {

/// A day window may have to close while its logic is at work: it is deleted later.
class DayForm : public QObject, public Form<QtDayWindow, frmDay> {
 public:
  using Form::Form;

  QtInputGate Gate{Window};
};

}  // namespace veyra
