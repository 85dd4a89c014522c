#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "logic/bookings.h"
#include "logic/name_box.h"
#include "logic/session.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/faults/watched_store.h"
#include "tests/logic/fake_screens.h"
#include "tests/store_kind.h"

namespace veyra::faults {

/// A front desk at work on the calendar of a folder: the routines of every action that writes, as
/// the windows call them. What it does is the same in every run.
class Office {
 public:
  /// Opens the folder's databases.
  explicit Office(const std::string& folder, const Witness& witness = {});

  /// Brings the calendar up to date and shows the active facility, as a start does.
  void Start();

  void Book(int day, const std::string& name);  ///< In April 2014, 9:00 to 10:30.
  void BookSeries(const std::string& name);     ///< On Tuesdays and Thursdays in May 2014.
  void BookDays(const std::string& name,        ///< On every day from May 2014 to September.
                const std::string& to = "9/30/2014");
  void Delete(int month, int day, Answer whole_group = Answer::No);
  void Rename(int month, int day, const std::string& name, Answer whole_group = Answer::No);
  void AddFacility(const std::string& name);
  void SelectFacility(const std::string& name);
  void DeleteFacility(const std::string& name);
  void SaveColors(int number);

  /// What the operator was told, box by box.
  const std::vector<std::string>& Boxes() const { return dialogs_.Boxes(); }

  /// The boxes that tell of an action done in part. They are answered with Keep.
  std::string Halts() const;

 private:
  void Select(int month, int day);

  FakeClock clock_{2014, 3, 15};
  FakeDialogs dialogs_;
  FakeScreens screens_;
  DayGrid grid_;
  NameBox box_;
  std::string room_label_;
  Session session_;
};

/// What a calendar is before an action.
enum class Before {
  InUse,  ///< It has been started with.
  New,    ///< Made by veyra-data, and not yet started with.
  Old,    ///< Of the first version: neither MultKey nor TodayBColor.
};

/// An action that writes, done so often that it can break off at many points. A start is part of
/// it.
struct Action {
  const char* Name;
  std::function<void(Office&)> Prepare;  ///< Makes what the action needs, beforehand.
  std::function<void(Office&)> Do;
  Before Calendar = Before::InUse;
};

inline void PrintTo(const Action& action, std::ostream* stream) {
  *stream << action.Name;
}

const std::vector<Action>& Actions();

/// A series of so many dates that an Access file takes them in several changes, each of many.
const Action& DailySeries();

/// An action on one kind of file: what most tests here are done for.
using Case = std::tuple<StoreKind, Action>;

/// All of them, named as "Access_Series".
const auto kAllCases =
    testing::Combine(testing::ValuesIn(kFileKinds), testing::ValuesIn(Actions()));

/// The daily series, for tests that an Access file makes another thing of.
const auto kManyRowsAtOnce = testing::Values(Case(StoreKind::Access, DailySeries()));
std::string NameOfCase(const testing::TestParamInfo<Case>& info);

/// `whole` when every fault is to be tried, else `part`: VEYRA_FAULTS=whole tells.
int Tries(int part, int whole);

/// The files of a folder in which the calendar stands ready for the action, closed.
class ReadyFolder {
 public:
  ReadyFolder(StoreKind kind, const Action& action);

  /// Fills an empty folder with them.
  void CopyTo(const std::string& folder) const;

 private:
  std::vector<std::pair<std::string, std::string>> files_;
};

}  // namespace veyra::faults
