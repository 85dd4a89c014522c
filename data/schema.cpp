#include "data/schema.h"

#include <algorithm>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"

namespace veyra {

namespace {

constexpr const char* kCalendarFile = "\\Calendar.mdb";
constexpr const char* kGuestFile = "\\Veyra.mdb";
constexpr int kColorSize = 16;
constexpr int kNameSize = 255;

std::string FolderAdvice(const Databases& databases) {
  if (databases.AppFolder.empty()) return "Check that the folder is the right one.";
  return "The first line of " + NativePath(databases.AppFolder + "\\path.txt").string() +
         " must name the folder that holds Calendar.mdb and Veyra.mdb.";
}

std::unique_ptr<Connection> OpenConnection(const Databases& databases, const char* file,
                                           StoreAccess access) {
  try {
    return std::make_unique<Connection>(
        OpenStore(databases.DataFolder + file, access, databases.Timeout));
  } catch (const MissingFileError& error) {
    throw MissingFileError({error.report().File, error.report().Cause, FolderAdvice(databases)});
  }
}

ColumnDefinition ColorColumn(std::string name) {
  return {.Name = std::move(name), .Type = ColumnType::Text, .Size = kColorSize};
}

TableDefinition SettingsTable() {
  return {.Name = "Settings",
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      ColorColumn("BkGrnd"),
                      ColorColumn("HeaderTxt"),
                      ColorColumn("DaysTxtColor"),
                      ColorColumn("TodayColor")}};
}

ColumnDefinition MultKeyColumn() {
  return {.Name = "MultKey", .Type = ColumnType::Double, .Default = 0.0};
}

ColumnDefinition TodayBColorColumn() {
  ColumnDefinition column = ColorColumn("TodayBColor");
  column.Default = std::string("0");
  return column;
}

void AddDefaultSettings(Connection& res_con) {
  const auto rows = res_con.Open("SELECT * FROM Settings", CursorType::StaticOptimistic);
  rows->AddNew();
  rows->SetField("BkGrnd", std::string("-2147483643"));
  rows->SetField("HeaderTxt", std::string("12582912"));
  rows->SetField("DaysTxtColor", std::string("0"));
  rows->SetField("TodayColor", std::string("255"));
  rows->Update();
}

void CopyBackgroundToToday(Connection& res_con) {
  const auto rows =
      res_con.Open("SELECT * FROM Settings Where ID = 1", CursorType::StaticOptimistic);
  if (rows->IsEmpty()) return;
  rows->SetField("TodayBColor", rows->Field("BkGrnd"));
  rows->Update();
}

}  // namespace

void CreateResCon(Databases& databases) {
  databases.ResCon.reset();
  databases.ResCon = OpenConnection(databases, kCalendarFile, StoreAccess::ReadWrite);
}

void CreateVeyraCon(Databases& databases) {
  databases.GuestCon.reset();
  databases.GuestCon = OpenConnection(databases, kGuestFile, StoreAccess::ReadOnly);
}

void EnsureSettingsRow(Databases& databases) {
  try {
    databases.ResCon->CreateTable(SettingsTable());
    AddDefaultSettings(*databases.ResCon);
  } catch (const Error&) {
    // Silent: that the table is there already is what every start after the first one finds, and
    // any other failure shows when the colours are read.
  }
}

void EnsureMultKeyColumn(Databases& databases) {
  try {
    if (HasNamedItem(databases.ResCon->ColumnNames("Reserv"), "MultKey")) return;
    databases.ResCon->AddColumn("Reserv", MultKeyColumn());
  } catch (const Error&) {
    // Silent: a calendar that cannot be brought up to date shows it when its bookings are read.
  }
}

void EnsureTodayBColorColumn(Databases& databases) {
  try {
    if (HasNamedItem(databases.ResCon->ColumnNames("Settings"), "TodayBColor")) return;
    databases.ResCon->AddColumn("Settings", TodayBColorColumn());
    CopyBackgroundToToday(*databases.ResCon);
  } catch (const Error&) {
    // Silent: settings that cannot be brought up to date show it when the colours are read.
  }
}

bool HasNamedItem(const std::vector<std::string>& collection, std::string_view item_name) {
  return std::find(collection.begin(), collection.end(), item_name) != collection.end();
}

TableDefinition RoomsTable() {
  return {.Name = "Rooms",
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      {.Name = "Name", .Type = ColumnType::Text, .Size = kNameSize},
                      {.Name = "Active", .Type = ColumnType::WholeNumber}}};
}

TableDefinition ReservTable() {
  return {.Name = "Reserv",
          .Columns = {{.Name = "RmID", .Type = ColumnType::WholeNumber},
                      {.Name = "Event", .Type = ColumnType::Text, .Size = 50},
                      {.Name = "DateOfRes", .Type = ColumnType::Day},
                      {.Name = "TimeFrom", .Type = ColumnType::WholeNumber},
                      {.Name = "TimeTo", .Type = ColumnType::WholeNumber},
                      MultKeyColumn()},
          .Indexes = {{"ReservByDay", {"RmID", "DateOfRes", "TimeFrom"}},
                      {"ReservByDate", {"DateOfRes"}},
                      {"ReservByGroup", {"RmID", "MultKey"}}}};
}

std::vector<TableDefinition> CalendarTables() {
  TableDefinition settings = SettingsTable();
  settings.Columns.push_back(TodayBColorColumn());
  return {RoomsTable(), ReservTable(), std::move(settings)};
}

TableDefinition GuestTable() {
  return {.Name = "Guest",
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      {.Name = "Name", .Type = ColumnType::Text, .Size = kNameSize}}};
}

}  // namespace veyra
