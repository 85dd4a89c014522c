#pragma once

#include <QString>
#include <QWidget>
#include <stdexcept>
#include <string>

#include "logic/multiday.h"

class QLineEdit;

namespace veyra::soak {

/// The window of that name, shown or not; nullptr when there is none.
QWidget* AnyWindow(const char* name);

/// The window of that name that is shown; nullptr when none is.
QWidget* Seen(const char* name);

bool TakesInput(const QWidget* window);

/// The control of that name in a window. Throws std::runtime_error when there is none.
template <typename Control>
Control& In(QWidget& window, const QString& name) {
  auto* control = window.findChild<Control*>(name);
  if (control == nullptr) {
    throw std::runtime_error("no control " + name.toStdString());
  }
  return *control;
}

/// Clicks a button of a window.
void Press(QWidget& window, const char* button);

/// Types over what stands in a field.
void Write(QLineEdit& field, const std::string& text);

/// What stands in the multiple-day window; nothing of it while there is no such window.
MultiDayPlan PlanInWindow();

}  // namespace veyra::soak
