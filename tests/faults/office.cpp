#include "tests/faults/office.h"

#include <cstdlib>
#include <fstream>

#include "data/color_settings.h"
#include "data/schema.h"
#include "logic/delete_bookings.h"
#include "logic/delete_facility.h"
#include "logic/facilities.h"
#include "logic/rename_bookings.h"
#include "tests/temp_folder.h"

namespace veyra::faults {

namespace {

constexpr int kFirstSlot = 19;
constexpr int kLastSlot = 21;
constexpr int kTimes = 8;
constexpr int kGroupMonth = 5;
constexpr int kGroupDay = 1;

void BookMonth(Office& office) {
  for (int day = 1; day <= kTimes; ++day) {
    office.Book(day, "Guest " + std::to_string(day));
  }
}

void BookGroup(Office& office) {
  office.BookSeries("Choir");
}

void DoNothing(Office&) {}

void DeleteMonth(Office& office) {
  for (int day = 1; day <= kTimes; ++day) {
    office.Delete(4, day);
  }
}

void RenameMonth(Office& office) {
  for (int day = 1; day <= kTimes; ++day) {
    office.Rename(4, day, "A name of another length " + std::to_string(day));
  }
}

void AddFacilities(Office& office) {
  for (int number = 1; number <= kTimes; ++number) {
    office.AddFacility("Room " + std::to_string(number));
  }
}

void SelectFacilities(Office& office) {
  for (int number = 1; number <= kTimes; ++number) {
    office.SelectFacility(number % 2 == 0 ? "Hall" : "Pool");
  }
}

void SaveColors(Office& office) {
  for (int number = 1; number <= kTimes; ++number) {
    office.SaveColors(number);
  }
}

TableDefinition WithoutColumn(TableDefinition table, const std::string& name) {
  std::erase_if(table.Columns, [&](const ColumnDefinition& column) { return column.Name == name; });
  std::erase_if(table.Indexes, [](const IndexDefinition&) { return true; });
  return table;
}

/// Tables as the first version made them, with its default colours.
void MakeOldTables(Store& store) {
  for (const TableDefinition& table : CalendarTables()) {
    store.CreateTable(WithoutColumn(WithoutColumn(table, "MultKey"), "TodayBColor"));
  }
  store.Insert("Settings", {{"BkGrnd", std::string("8421504")},
                            {"HeaderTxt", std::string("12582912")},
                            {"DaysTxtColor", std::string("0")},
                            {"TodayColor", std::string("255")}});
}

void MakeTables(Store& store, Before calendar) {
  if (calendar == Before::Old) {
    MakeOldTables(store);
  } else {
    store.CreateTable(RoomsTable());
    store.CreateTable(ReservTable());
  }
  store.Insert("Rooms", {{"Name", std::string("Pool")}, {"Active", std::int64_t{1}}});
  store.Insert("Rooms", {{"Name", std::string("Hall")}, {"Active", std::int64_t{0}}});
  store.Insert("Reserv", {{"RmID", std::int64_t{1}},
                          {"Event", std::string("Old guest")},
                          {"DateOfRes", MakeDate(2014, 3, 1).value()},
                          {"TimeFrom", std::int64_t{1}},
                          {"TimeTo", std::int64_t{2}}});
}

}  // namespace

Office::Office(const std::string& folder, const Witness& witness) {
  dialogs_.AnswerHalts(Answer::Keep);
  session_.DataFolder = folder;
  modRes::SlotLabels(session_.SlotLabel);
  session_.ResCon = std::make_unique<Connection>(std::make_unique<WatchedStore>(
      OpenStore(folder + "/Calendar.mdb", StoreAccess::ReadWrite), witness));
  session_.CurYear = 2014;
  session_.CurMonth = 4;
  session_.CurrentColors = {"0", "0", "0", "0", "0"};
}

std::string Office::Halts() const {
  std::string halts;
  for (const std::string& box : Boxes()) {
    if (box.starts_with("[Continue/Undo/Keep")) {
      halts += box + "\n";
    }
  }
  return halts;
}

void Office::Start() {
  EnsureSettingsRow(session_);
  EnsureMultKeyColumn(session_);
  EnsureTodayBColorColumn(session_);
  modRes::LoadFacilities(session_, box_);
  LoadColorSettings(*session_.ResCon, session_.CurrentColors, session_.StoredColors);
  modRes::SelectFacility(session_, box_.Text);
}

void Office::Select(int month, int day) {
  session_.DayDate = MakeDate(2014, month, day).value();
  session_.AnchorRow = session_.SelFirstSlot = kFirstSlot;
  session_.SelEndRow = session_.SelLastSlot = kLastSlot;
}

void Office::Book(int day, const std::string& name) {
  Select(4, day);
  modRes::MakeBookings(session_, {name, false, {}}, {grid_, screens_}, clock_, dialogs_);
}

void Office::BookSeries(const std::string& name) {
  Select(kGroupMonth, kGroupDay);
  MultiDayPlan plan{{"5/1/2014", "5/28/2014"}, {}};
  plan.Days[3] = plan.Days[5] = true;
  modRes::MakeBookings(session_, {name, true, plan}, {grid_, screens_}, clock_, dialogs_);
}

void Office::BookDays(const std::string& name, const std::string& to) {
  Select(kGroupMonth, kGroupDay);
  MultiDayPlan plan{{"5/1/2014", to}, {}};
  for (int weekday = 1; weekday <= 7; ++weekday) {
    plan.Days[weekday] = true;
  }
  modRes::MakeBookings(session_, {name, true, plan}, {grid_, screens_}, clock_, dialogs_);
}

void Office::Delete(int month, int day, Answer whole_group) {
  Select(month, day);
  if (whole_group == Answer::Yes) {
    dialogs_.AnswerNext(whole_group);
  }
  modRes::DeleteBookings(session_, {grid_, screens_}, {screens_, screens_, clock_}, dialogs_);
}

void Office::Rename(int month, int day, const std::string& name, Answer whole_group) {
  Select(month, day);
  if (whole_group == Answer::Yes) {
    dialogs_.AnswerNext(whole_group);
  }
  std::string new_name = name;
  modRes::RenameBookings(session_, new_name, {grid_, screens_}, {screens_, screens_, clock_},
                         dialogs_);
}

void Office::AddFacility(const std::string& name) {
  box_.Text = name;
  modRes::AddFacility(session_, box_);
}

void Office::SelectFacility(const std::string& name) {
  modRes::SelectFacility(session_, name);
}

void Office::DeleteFacility(const std::string& name) {
  modRes::SelectFacility(session_, name);
  box_.Text = name;
  modRes::DeleteFacility(session_, box_, room_label_, dialogs_);
}

void Office::SaveColors(int number) {
  const std::string color = std::to_string(number * 1000);
  SaveColorSettings(*session_.ResCon, {color, color, color, color, color}, session_.CurrentColors);
}

const std::vector<Action>& Actions() {
  static const std::vector<Action> actions{
      {"Bookings", DoNothing, BookMonth},
      {"Series", DoNothing, BookGroup},
      {"Deletions", BookMonth, DeleteMonth},
      {"GroupDeletion", BookGroup,
       [](Office& office) { office.Delete(kGroupMonth, kGroupDay, Answer::Yes); }},
      {"Renamings", BookMonth, RenameMonth},
      {"GroupRenaming", BookGroup,
       [](Office& office) { office.Rename(kGroupMonth, kGroupDay, "Band", Answer::Yes); }},
      {"NewFacilities", DoNothing, AddFacilities},
      {"ChosenFacilities", DoNothing, SelectFacilities},
      {"DeletedFacility", BookGroup, [](Office& office) { office.DeleteFacility("Pool"); }},
      {"Colors", DoNothing, SaveColors},
      {"FirstStart", DoNothing, DoNothing, Before::New},
      {"Upgrade", DoNothing, DoNothing, Before::Old},
  };
  return actions;
}

const Action& DailySeries() {
  static const Action action{"DailySeries", DoNothing,
                             [](Office& office) { office.BookDays("Summer school"); }};
  return action;
}

std::string NameOfCase(const testing::TestParamInfo<Case>& info) {
  return std::string(NameOf(std::get<StoreKind>(info.param))) + "_" +
         std::get<Action>(info.param).Name;
}

int Tries(int part, int whole) {
  const char* wanted = std::getenv("VEYRA_FAULTS");
  return wanted != nullptr && std::string(wanted) == "whole" ? whole : part;
}

ReadyFolder::ReadyFolder(StoreKind kind, const Action& action) {
  const TempFolder folder;
  MakeTables(*CreateStoreOfKind(kind, folder.File("Calendar.mdb").string()), action.Calendar);
  if (action.Calendar == Before::InUse) {
    Office office(folder.path().string());
    office.Start();
    action.Prepare(office);
  }
  for (const std::string& name : folder.Names()) {
    files_.emplace_back(name, folder.Read(name));
  }
}

void ReadyFolder::CopyTo(const std::string& folder) const {
  for (const auto& [name, bytes] : files_) {
    std::ofstream(folder + "/" + name, std::ios::binary) << bytes;
  }
}

}  // namespace veyra::faults
