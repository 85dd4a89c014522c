#include "tests/soak/windows.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "forms/widgets/qt_text.h"

namespace veyra::soak {

QWidget* AnyWindow(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QLatin1String(name)) {
      return window;
    }
  }
  return nullptr;
}

QWidget* Seen(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == QLatin1String(name)) {
      return window;
    }
  }
  return nullptr;
}

bool TakesInput(const QWidget* window) {
  return window != nullptr && window->isEnabled();
}

void Press(QWidget& window, const char* button) {
  QTest::mouseClick(&In<QPushButton>(window, QLatin1String(button)), Qt::LeftButton);
}

void Write(QLineEdit& field, const std::string& text) {
  field.setFocus();
  field.selectAll();
  field.insert(ToQString(text));
}

MultiDayPlan PlanInWindow() {
  MultiDayPlan plan;
  QWidget* window = AnyWindow("frmMultiDay");
  for (int i = 0; window != nullptr && i < 2; ++i) {
    plan.Text1.at(static_cast<std::size_t>(i)) =
        ToUtf8(In<QLineEdit>(*window, QStringLiteral("Text1(%1)").arg(i)).text());
  }
  for (int day = 1; window != nullptr && day <= 7; ++day) {
    plan.Days[day] = In<QCheckBox>(*window, QStringLiteral("Days(%1)").arg(day)).isChecked();
  }
  return plan;
}

}  // namespace veyra::soak
