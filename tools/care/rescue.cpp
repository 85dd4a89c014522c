#include "tools/care/rescue.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "data/errors.h"
#include "data/journal.h"
#include "data/names.h"
#include "data/open_file_store.h"
#include "data/open_store.h"
#include "data/salvage_file.h"
#include "data/schema.h"
#include "tools/care/salvaged_store.h"
#include "tools/copy_database.h"
#include "tools/new_database.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";
constexpr const char* kGuestFile = "Veyra.mdb";
constexpr const char* kModelFile = "models.mdb";
constexpr std::int64_t kLastSlot = 48;

std::vector<TableDefinition> KnownTables() {
  std::vector<TableDefinition> tables = CalendarTables();
  tables.push_back(GuestTable());
  tables.push_back(JournalTable());
  return tables;
}

const TableDefinition* Known(const std::vector<TableDefinition>& tables, const std::string& name) {
  const auto found = std::find_if(tables.begin(), tables.end(),
                                  [&](const auto& each) { return SameName(each.Name, name); });
  return found == tables.end() ? nullptr : &*found;
}

/// The values of one row by the names of their columns.
class NamedValues {
 public:
  NamedValues(const std::vector<std::string>& columns, const std::vector<Value>& values)
      : columns_(columns), values_(values) {}

  bool IsNumber(const char* name, std::int64_t least, std::int64_t most) const {
    const auto place = FindName(columns_, name);
    const auto number = place ? ToInteger(values_.at(*place)) : std::nullopt;
    return number && *number >= least && *number <= most;
  }

  bool IsDay(const char* name) const {
    const auto place = FindName(columns_, name);
    return place && ToDate(values_.at(*place)).has_value();
  }

 private:
  const std::vector<std::string>& columns_;
  const std::vector<Value>& values_;
};

/// Whether such a row may stand in a table of a calendar.
bool IsPlausible(const std::string& table, const std::vector<std::string>& columns,
                 const std::vector<Value>& values) {
  const NamedValues row(columns, values);
  if (SameName(table, "Reserv")) {
    return row.IsNumber("RmID", 1, INT32_MAX) && row.IsDay("DateOfRes") &&
           row.IsNumber("TimeFrom", 1, kLastSlot) && row.IsNumber("TimeTo", 1, kLastSlot);
  }
  const bool has_key = Known(KnownTables(), table) != nullptr;
  return !has_key || row.IsNumber("ID", 1, INT32_MAX);
}

/// What makes a row one that the new file cannot hold; nothing when it can.
Phrase Obstacle(const SalvagedTable& table, const TableDefinition* known, const SalvagedRow& row,
                std::set<std::int64_t>& numbers) {
  for (std::size_t i = 0; i < row.Values.size(); ++i) {
    const ColumnDescription& column = table.Table.Columns[i];
    const auto is_named = [&](const auto& each) { return SameName(each.Name, column.Name); };
    if (known != nullptr) {
      const auto type = std::find_if(known->Columns.begin(), known->Columns.end(), is_named);
      if (type != known->Columns.end() && !ValueAs(type->Type, row.Values[i])) {
        return Phrase::Tr("A row was left out: %1 holds \"%2\".", column.Name,
                          ToText(row.Values[i]));
      }
    }
    if (!column.AutoNumber) {
      continue;
    }
    const auto number = ToInteger(row.Values[i]);
    if (!number || !numbers.insert(*number).second) {
      return Phrase::Tr("A row was left out: %1 holds \"%2\", which another row has.", column.Name,
                        ToText(row.Values[i]));
    }
  }
  return {};
}

/// Takes out the rows that the new file cannot hold, and tells of them.
void DropUnfit(Salvage& salvage) {
  const std::vector<TableDefinition> all_known = KnownTables();
  for (SalvagedTable& table : salvage.Tables) {
    std::vector<SalvagedRow> fit;
    std::set<std::int64_t> numbers;
    for (SalvagedRow& row : table.Rows) {
      const Phrase obstacle = Obstacle(table, Known(all_known, table.Table.Name), row, numbers);
      if (obstacle.IsEmpty()) {
        fit.push_back(std::move(row));
      } else {
        salvage.Losses.push_back({table.Table.Name, row.Page, obstacle});
      }
    }
    table.Rows = std::move(fit);
    for (ColumnDescription& column : table.Table.Columns) {
      if (!column.IsReadable) {
        salvage.Losses.push_back({table.Table.Name, std::nullopt,
                                  Phrase::Tr("The column %1 holds pictures or other objects, "
                                             "which are left out.",
                                             column.Name)});
        column.IsReadable = true;
      }
    }
  }
}

/// A file has one table of a name.
void DropSameNames(Salvage& salvage) {
  std::vector<SalvagedTable> tables;
  for (SalvagedTable& table : salvage.Tables) {
    const std::string& name = table.Table.Name;
    if (std::any_of(tables.begin(), tables.end(),
                    [&](const auto& each) { return SameName(each.Table.Name, name); })) {
      salvage.Losses.push_back(
          {name, std::nullopt, Phrase::Tr("A second table of that name was left out.")});
    } else {
      tables.push_back(std::move(table));
    }
  }
  salvage.Tables = std::move(tables);
}

bool HasTable(const Salvage& salvage, const char* name) {
  return std::any_of(salvage.Tables.begin(), salvage.Tables.end(),
                     [&](const auto& each) { return SameName(each.Table.Name, name); });
}

bool IsGuestDatabase(const Salvage& salvage) {
  return HasTable(salvage, "Guest") && !HasTable(salvage, "Rooms") && !HasTable(salvage, "Reserv");
}

bool IsNeeded(const std::string& table) {
  return Known(CalendarTables(), table) != nullptr || SameName(table, "Guest");
}

/// Copies table by table: one that the new file cannot hold takes no other with it.
void CopyAll(Store& source, FileStore& target, Salvage& salvage, CopyPlan& plan,
             const CopyObserver& observer) {
  std::vector<TablePlan> copied;
  for (const TablePlan& table : plan.Tables) {
    try {
      CopyTables(source, target, {.Tables = {table}, .RowCount = plan.RowCount}, observer);
      copied.push_back(table);
    } catch (const DatabaseError& error) {
      if (IsNeeded(table.Table.Name)) {
        throw;
      }
      salvage.Losses.push_back(
          {table.Table.Name, std::nullopt,
           Phrase::Tr("It could not be written into the new file. %1", error.report().Cause)});
    }
  }
  plan.Tables = std::move(copied);
}

/// A calendar has both, whatever is left in them.
void MakeMissing(FileStore& target, Salvage& salvage) {
  if (!HasTable(salvage, "Rooms") && !HasTable(salvage, "Reserv")) {
    return;
  }
  for (const TableDefinition& table : {RoomsTable(), ReservTable()}) {
    if (!HasTable(salvage, table.Name.c_str())) {
      target.CreateTable(table);
      salvage.Losses.push_back({table.Name, std::nullopt,
                                Phrase::Tr("No such table was found; it was made without rows.")});
    }
  }
}

void RequireSound(const fs::path& file) {
  const auto faults = OpenFileStore(file.string(), StoreAccess::ReadOnly)->Verify();
  if (!faults.empty()) {
    throw FileError({file.string(), Phrase::Tr("The new file is not right: %1", faults.front()),
                     Phrase::Tr("Nothing was made. Please report this.")});
  }
}

void Write(Salvage& salvage, const fs::path& damaged, const fs::path& file,
           const CopyObserver& observer) {
  const auto source = MakeSalvagedStore(damaged.string(), salvage);
  CopyPlan plan = PlanCopy(*source, salvage.Kind, observer);
  {
    const auto target = CreateFileStore(file.string(), Durability::WhenAsked, salvage.Kind);
    CopyAll(*source, *target, salvage, plan, observer);
    MakeMissing(*target, salvage);
    if (HasTable(salvage, kJournalTable)) {
      target->KeepJournal(true);
    }
  }
  CompareTables(*source, *OpenStore(file.string(), StoreAccess::ReadOnly), plan, observer);
  RequireSound(file);
}

Salvage Read(const fs::path& damaged, const fs::path& models) {
  NewDatabase(models, FileKind::Access, KnownTables());
  Salvage salvage = SalvageFile(
      damaged.string(),
      {.Tables = KnownTables(), .AccessFile = models.string(), .IsPlausible = IsPlausible});
  fs::remove(models);
  if (salvage.Tables.empty()) {
    throw DatabaseError({damaged.string(), Phrase::Tr("No table of it can be read any more."),
                         Phrase::Tr("Nothing was made. Go back to a copy of the file.")});
  }
  DropSameNames(salvage);
  DropUnfit(salvage);
  return salvage;
}

}  // namespace

Rescued RescueFile(const fs::path& damaged, const fs::path& folder, const CopyObserver& observer) {
  UnfinishedFolder::RemoveAbandoned(folder);
  UnfinishedFolder unfinished(folder);
  Salvage salvage = Read(damaged, unfinished.path() / kModelFile);
  const std::string name = IsGuestDatabase(salvage) ? kGuestFile : kCalendarFile;
  RefuseIfThere(folder / name);
  Write(salvage, damaged, unfinished.path() / name, observer);
  unfinished.MoveOut({name});
  return {folder / name, std::move(salvage)};
}

}  // namespace veyra
