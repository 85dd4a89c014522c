#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "forms/widgets/qt_text.h"
#include "tests/soak/monkey.h"
#include "tests/soak/windows.h"

namespace veyra::soak {

namespace {

constexpr std::size_t kMostBookings = 250;

/// The number that a report begins with.
int NumberOf(const std::string& report) {
  return std::atoi(report.c_str());
}

bool Ends(const std::string& text, const char* end) {
  return text.ends_with(end);
}

}  // namespace

void Monkey::ActInDay(QWidget& day) {
  switch (Lot(12)) {
    case 0:
      Say("single");
      In<QRadioButton>(day, QStringLiteral("Book(0)")).click();
      break;
    case 1:
      Say("several days");
      In<QRadioButton>(day, QStringLiteral("Book(1)")).click();
      break;
    case 2:
    case 3: {
      const std::string name = DrawnName();
      Say("name " + name);
      Write(*In<QComboBox>(day, QStringLiteral("Combo1")).lineEdit(), name);
      break;
    }
    case 4:
    case 5:
      CloseWindow(day);
      break;
    default:
      DragRows(day);
  }
}

/// A row that shows a name, if there is one.
std::optional<int> Monkey::BookedRow(const QTableWidget& grid) {
  std::vector<int> booked;
  for (int row = 0; row < grid.rowCount(); ++row) {
    if (!grid.item(row, 1)->text().isEmpty()) {
      booked.push_back(row);
    }
  }
  if (booked.empty()) {
    return std::nullopt;
  }
  return booked[Lot(static_cast<unsigned>(booked.size()))];
}

void Monkey::DragRows(QWidget& day) {
  auto& grid = In<QTableWidget>(day, QStringLiteral("MSFlexGrid1"));
  int first = static_cast<int>(Lot(48));
  int last = std::clamp(first + static_cast<int>(Lot(7)) - 3, 0, 47);
  if (const auto booked = BookedRow(grid); booked && Lot(3) != 0) {
    first = last = *booked;
  }
  if (model_.Bookings().size() > kMostBookings && grid.item(first, 1)->text().isEmpty()) {
    return;
  }
  Say("rows " + std::to_string(first + 1) + " to " + std::to_string(last + 1));
  grid.scrollToItem(grid.item(std::min(first, last), 1), QAbstractItemView::PositionAtTop);
  const auto middle = [&](int row) { return grid.visualItemRect(grid.item(row, 1)).center(); };
  dialogs_.TypeNext(DrawnName());
  QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, middle(first));
  QTest::mouseMove(grid.viewport(), middle(last));
  QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, middle(last));
  TakeReports(day_, modRes::RangeOfRows(first + 1, last + 1));
}

void Monkey::TakeReports(Date day, modRes::SlotRange range) {
  std::string name;
  bool several = false;
  const auto expect = [this](bool is_right, const std::string& report) {
    ++reports_;
    if (!is_right) {
      throw std::runtime_error("not what was reported: " + report);
    }
  };
  for (const MonkeyDialogs::Box& box : dialogs_.TakeBoxes()) {
    const std::string& text = box.Text;
    Say("box: " + text);
    const std::string asked = "Reservation for ";
    if (text.starts_with(asked)) {
      name = text.substr(asked.size(), text.rfind(" From ") - asked.size());
      several = text.find("Booking(s) between") != std::string::npos;
    } else if (Ends(text, " Booking(s) Made.")) {
      const int booked = several ? model_.BookPlan(name, PlanInWindow(), range) : 1;
      if (several) {
        ++series_made_;
        clock_.SetTime(series_made_ / 3600 % 24, series_made_ / 60 % 60, series_made_ % 60);
      } else {
        model_.Book(name, day, range);
      }
      expect(booked == NumberOf(text), text);
    } else if (text == "Booking Deleted.") {
      expect(model_.Delete(day, range), text);
    } else if (Ends(text, " Bookings Deleted.")) {
      expect(model_.DeleteGroup(day, range) == NumberOf(text), text);
    } else if (text == "Booking Name Changed.") {
      expect(model_.Rename(day, range, dialogs_.TypedText()), text);
    } else if (Ends(text, " Bookings Name Changed.")) {
      expect(model_.RenameGroup(day, range, dialogs_.TypedText()) == NumberOf(text), text);
    } else if (text.find("Calendar.mdb") != std::string::npos) {
      throw std::runtime_error("a failure was reported: " + text);
    }
  }
}

}  // namespace veyra::soak
