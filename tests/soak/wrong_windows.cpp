#include "tests/soak/wrong_windows.h"

#include <QListWidget>
#include <algorithm>

#include "forms/widgets/qt_text.h"
#include "logic/slots.h"
#include "tests/soak/windows.h"

namespace veyra::soak {

std::string WrongLines(QWidget& month, Date day, std::vector<std::string> expected) {
  const Date first = AddDays(day, 1 - DayOf(day));
  const int cell = WeekdayNumber(first) + DayOf(day) - 1;
  auto& list = In<QListWidget>(month, QStringLiteral("lstDay(%1)").arg(cell));
  std::vector<std::string> shown;
  for (int row = 0; row < list.count(); ++row) {
    shown.push_back(ToUtf8(list.item(row)->text()));
  }
  std::sort(shown.begin(), shown.end());
  std::sort(expected.begin(), expected.end());
  if (shown == expected) {
    return {};
  }
  std::string fault = DateText(day) + " shows";
  for (const std::string& line : shown) {
    fault += " [" + line + "]";
  }
  fault += " but should";
  for (const std::string& line : expected) {
    fault += " [" + line + "]";
  }
  return fault;
}

std::string StuckWindow() {
  const QWidget* month = Seen("frmCalendar");
  const QWidget* day = Seen("frmDay");
  const QWidget* viewer = Seen("frmDayViewer");
  if (month == nullptr && day == nullptr) {
    return "the month window is hidden, and no day window brings it back";
  }
  const bool has_child = viewer != nullptr || day != nullptr || Seen("frmSettings") != nullptr ||
                         Seen("frmAbout") != nullptr;
  if (month != nullptr && !TakesInput(month) && !has_child) {
    return "the month window takes no input, and no window brings it back";
  }
  if (day != nullptr && !TakesInput(day) && Seen("frmMultiDay") == nullptr) {
    return "the day window takes no input, and no window brings it back";
  }
  return {};
}

}  // namespace veyra::soak
