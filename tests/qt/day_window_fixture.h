#pragma once

#include "forms/day/qt_slot_grid.h"
#include "tests/qt/program_fixture.h"

namespace veyra {

/// The day window, with two guests to offer.
class DayWindowFixture : public ProgramFixture {
 protected:
  DayWindowFixture() {
    data_.AddGuest(std::string("Ann Smith"));
    data_.AddGuest(std::string("Bob Jones"));
  }

  static std::string Guest(int row) { return Grid().item(row - 1, 1)->text().toStdString(); }

  static int TopRow() { return Grid().rowAt(0) + 1; }

  /// The rows that are highlighted, "19-21".
  static std::string Range() {
    const QItemSelection selection = Grid().selectionModel()->selection();
    if (selection.isEmpty()) {
      return "none";
    }
    return std::to_string(selection.first().top() + 1) + "-" +
           std::to_string(selection.first().bottom() + 1);
  }

  static void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Grid(), static_cast<Qt::Key>(key), modifiers);
  }

  std::string Question() { return dialogs_.OnlyBox(); }

  static std::string QuestionFor(const std::string& name, const std::string& from,
                                 const std::string& to) {
    return "[OK/Cancel Question] Reservation for " + name + " From " + from + " To " + to +
           ".\r\nSelect OK to Book or Cancel to Cancel";
  }
};

}  // namespace veyra
