#pragma once

#include <QTableWidget>
#include <QWidget>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "app/program.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/soak/model.h"
#include "tests/soak/monkey_dialogs.h"

namespace veyra::soak {

/// Works the program's windows by gestures that it draws, and does to a model what they and the
/// boxes that it has answered mean.
class Monkey {
 public:
  explicit Monkey(unsigned seed);
  ~Monkey();

  /// Makes a gesture. Returns what is wrong then: the tables differ from the model, a day shows
  /// other lines, or a window waits for nothing. Empty when all is right.
  std::string Act();

  /// How often something was reported as made, deleted or renamed.
  int Reports() const { return reports_; }

  /// The last gestures, and what the boxes said, a line each.
  std::string Story() const;

 private:
  void ActInMonth(QWidget& month);
  void ActInDay(QWidget& day);
  void ActInPlan(QWidget& plan);
  void ActInViewer(QWidget& viewer);
  void ActInSettings(QWidget& settings);

  void AddFacility(QWidget& month);
  void ChooseFacility(QWidget& month);
  void DeleteFacility(QWidget& month);
  void PressDay(QWidget& month, Qt::MouseButton button);
  std::optional<int> BookedRow(const QTableWidget& grid);
  void DragRows(QWidget& day);
  void TakeReports(Date day, modRes::SlotRange range);
  void PickColor(QWidget& settings);
  void CloseWindow(QWidget& window);
  void Settle();

  std::string WrongTables();
  std::string WrongDay();

  /// The first of the month that lies so many months after that of `first`, or before it.
  static Date FirstOfNextMonth(Date first, int step);

  unsigned Lot(unsigned count) { return static_cast<unsigned>(random_() % count); }
  std::string DrawnName();
  void Say(const std::string& line);

  std::mt19937 random_;
  TempFolder app_;
  CalendarFolder data_;
  FakeClock clock_{2014, 3, 15};
  MonkeyDialogs dialogs_{random_};
  std::unique_ptr<Program> program_;
  Model model_;
  Date month_shown_{};
  Date day_{};
  ColorSettings colors_;         ///< In use.
  ColorSettings stored_colors_;  ///< As read at the start.
  ColorSettings preview_;        ///< Chosen in the settings window.
  int role_ = 0;                 ///< Whose colour the settings window picks.
  int rooms_made_ = 0;
  int series_made_ = 0;
  int reports_ = 0;
  std::vector<std::string> story_;
};

}  // namespace veyra::soak
