#include "data/schema.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "data/announced_store.h"
#include "data/color_settings.h"
#include "data/errors.h"
#include "data/file_name.h"
#include "data/lost_store.h"
#include "data/names.h"

namespace veyra {

namespace {

constexpr const char* kCalendarFile = "\\Calendar.mdb";
constexpr const char* kGuestFile = "\\Veyra.mdb";
constexpr int kColorSize = 16;

std::string FolderAdvice(const Databases& databases) {
  if (databases.AppFolder.empty()) {
    return "Check that the folder is the right one.";
  }
  return "The first line of " + NativePath(databases.AppFolder + "\\path.txt").string() +
         " must name the folder that holds Calendar.mdb and Veyra.mdb.";
}

std::unique_ptr<Connection> OpenConnection(const Databases& databases, const char* file,
                                           StoreAccess access) {
  try {
    const std::string name = databases.DataFolder + file;
    return std::make_unique<Connection>(access == StoreAccess::ReadWrite
                                            ? OpenAnnounced(name, databases.Waiting)
                                            : OpenStore(name, access, databases.Waiting));
  } catch (const MissingFileError& error) {
    throw MissingFileError({error.report().File, error.report().Cause, FolderAdvice(databases)});
  }
}

ColumnDefinition ColorColumn(std::string name) {
  return {.Name = std::move(name), .Type = ColumnType::Text, .Size = kColorSize};
}

ColumnDefinition MultKeyColumn() {
  return {.Name = "MultKey", .Type = ColumnType::Double, .Default = 0.0};
}

ColumnDefinition TodayBColorColumn() {
  ColumnDefinition column = ColorColumn("TodayBColor");
  column.Default = std::string("0");
  column.AllowsEmpty = false;
  return column;
}

TableDefinition SettingsTable() {
  return {.Name = "Settings",
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      ColorColumn("BkGrnd"),
                      ColorColumn("HeaderTxt"),
                      ColorColumn("DaysTxtColor"),
                      ColorColumn("TodayColor"),
                      TodayBColorColumn()}};
}

FieldValues DefaultSettings() {
  const ColorSettings usual = DefaultColors();
  return {{"BkGrnd", usual.BkGrnd},
          {"HeaderTxt", usual.HeaderTxt},
          {"DaysTxtColor", usual.DaysTxtColor},
          {"TodayColor", usual.TodayColor},
          {"TodayBColor", usual.TodayBColor}};
}

/// What the upgrades make.
std::vector<NamedItem> UpgradedItems() {
  return {{.Table = "Settings"}, {.Table = "Reserv", .Column = "MultKey"}};
}

/// Brings the calendar up to date in one step. A failure is silent: whether it matters shows when
/// what is missing is needed, and then it is explained.
void Upgrade(Databases& databases, const std::function<void(Connection&)>& step) {
  if (databases.WaitedInVain) {
    return;
  }
  try {
    step(*databases.ResCon);
  } catch (const DatabaseBusyError& failure) {
    databases.WaitedInVain = true;
    databases.ResCon->ExplainMissingItems(UpgradedItems(), failure.report());
  } catch (const Error& failure) {
    databases.ResCon->ExplainMissingItems(UpgradedItems(), failure.report());
  }
}

}  // namespace

std::string CalendarFileOf(const Databases& databases) {
  return databases.DataFolder + kCalendarFile;
}

void CreateResCon(Databases& databases) {
  databases.ResCon.reset();
  databases.WaitedInVain = false;
  databases.ResCon = OpenConnection(databases, kCalendarFile, StoreAccess::ReadWrite);
}

void ReopenResCon(Databases& databases) {
  const std::string file = databases.ResCon->FileName();
  try {
    CreateResCon(databases);
  } catch (const Error& failure) {
    databases.ResCon = std::make_unique<Connection>(MakeLostStore(file, failure.report()));
    throw;
  }
}

void CreateVeyraCon(Databases& databases) {
  databases.GuestCon.reset();
  databases.GuestCon = OpenConnection(databases, kGuestFile, StoreAccess::ReadOnly);
}

void EnsureSettingsRow(Databases& databases) {
  Upgrade(databases, [](Connection& res_con) {
    if (FindName(res_con.TableNames(), "Settings")) {
      return;
    }
    TableDefinition settings = SettingsTable();
    settings.FirstRows = {DefaultSettings()};
    res_con.CreateTable(settings);
  });
}

void EnsureMultKeyColumn(Databases& databases) {
  Upgrade(databases, [](Connection& res_con) {
    if (!HasNamedItem(res_con.ColumnNames("Reserv"), "MultKey")) {
      res_con.AddColumn("Reserv", MultKeyColumn());
    }
  });
}

void EnsureTodayBColorColumn(Databases& databases) {
  Upgrade(databases, [](Connection& res_con) {
    if (!HasNamedItem(res_con.ColumnNames("Settings"), "TodayBColor")) {
      ColumnDefinition column = TodayBColorColumn();
      column.Copied = {.From = "BkGrnd", .RowKey = "ID", .Row = 1};
      res_con.AddColumn("Settings", column);
    }
  });
}

bool HasNamedItem(const std::vector<std::string>& collection, std::string_view item_name) {
  return std::find(collection.begin(), collection.end(), item_name) != collection.end();
}

TableDefinition RoomsTable() {
  return {.Name = "Rooms",
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      {.Name = "Name", .Type = ColumnType::Text},
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
  return {RoomsTable(), ReservTable(), SettingsTable()};
}

TableDefinition GuestTable() {
  return {.Name = "Guest",
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      {.Name = "Name", .Type = ColumnType::Text}}};
}

}  // namespace veyra
