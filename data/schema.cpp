#include "data/schema.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "data/color_settings.h"
#include "data/errors.h"
#include "data/names.h"

namespace veyra {

namespace {

constexpr int kColorSize = 16;

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
          .Indexes = {{.Name = "ReservByDay",
                       .Columns = {"RmID", "DateOfRes", "TimeFrom"},
                       .Held = {"TimeTo", "Event", "MultKey"}},
                      {.Name = "ReservByDate", .Columns = {"DateOfRes"}},
                      {.Name = "ReservByGroup", .Columns = {"RmID", "MultKey"}}}};
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
