#include "data/access/write/system_tables.h"

#include <array>
#include <chrono>
#include <ctime>
#include <vector>

#include "data/access/read/table_image.h"
#include "data/access/write/definition_writer.h"
#include "data/access/write/long_writer.h"
#include "data/access/write/new_table.h"
#include "data/access/write/table_writer.h"

namespace veyra::access {

namespace {

constexpr std::uint8_t kSystemColumn = 0x10;
constexpr std::uint8_t kIdColumn = 0x20;
constexpr std::uint16_t kAnyLength = 510;
constexpr std::uint8_t kIndexRequired = 0x08;

constexpr std::int64_t kRootId = 0x0F000000;
constexpr std::int64_t kTablesId = 0x0F000001;
constexpr std::int64_t kDatabasesId = 0x0F000002;
constexpr std::int64_t kRelationshipsId = 0x0F000003;
constexpr std::int64_t kDatabaseId = 0x10000000;
constexpr std::int64_t kSystemFlag = -0x80000000LL;
constexpr std::int64_t kEverything = 0xFFFFF;

enum ObjectType : std::int64_t { kTable = 1, kDatabase = 2, kContainer = 3 };

/// The masked ids of kCreationStamp.
const Bytes kEngine = {0xA7, 0x31};
const Bytes kOwners = {0xA6, 0x33};
const Bytes kEverybody = {0xA7, 0x33};
const Bytes kCreator = {0xA7, 0x36};
const Bytes kAdministrators = {0xA4, 0xF7, 0x46, 0x67, 0xE1, 0x71, 0x67, 0xEE, 0xD7, 0xB1, 0x0F,
                               0x8F, 0xFE, 0xEF, 0x76, 0xFF, 0xAA, 0xE3, 0x66, 0x51, 0x05, 0xBD,
                               0xD2, 0x9D, 0x4D, 0x4B, 0x39, 0x52, 0xD9, 0xFB, 0x9A, 0x07, 0x66,
                               0x0C, 0x5B, 0xD2, 0xD8, 0x7D, 0xDD, 0xB3, 0x1E, 0x65, 0x90, 0x19};

ColumnLayout Column(const std::string& name, ColumnKind kind, std::uint8_t more_flags = 0) {
  ColumnLayout column;
  column.Name = name;
  column.Kind = kind;
  const std::size_t length = FixedLength(kind);
  column.Flags = static_cast<std::uint8_t>(kSystemColumn | kColumnNullable | more_flags |
                                           (length > 0 ? kColumnFixed : 0));
  column.Length = column.IsLong() ? std::uint16_t{0}
                  : length > 0    ? static_cast<std::uint16_t>(length)
                                  : kAnyLength;
  return column;
}

IndexLayout Index(const std::string& name, const std::vector<std::uint16_t>& columns,
                  std::uint8_t flags) {
  IndexLayout index;
  index.Name = name;
  index.Flags = flags;
  for (const std::uint16_t column : columns) {
    index.Columns.push_back({column, false});
  }
  return index;
}

TableLayout ObjectsTable() {
  TableLayout table;
  table.Page = kObjectsPage;
  table.Columns = {Column("Id", ColumnKind::Long),
                   Column("ParentId", ColumnKind::Long),
                   Column("Name", ColumnKind::Text),
                   Column("Type", ColumnKind::Short),
                   Column("DateCreate", ColumnKind::DateTime),
                   Column("DateUpdate", ColumnKind::DateTime),
                   Column("Owner", ColumnKind::Binary, kIdColumn),
                   Column("Flags", ColumnKind::Long),
                   Column("Database", ColumnKind::Memo),
                   Column("Connect", ColumnKind::Memo),
                   Column("ForeignName", ColumnKind::Text),
                   Column("RmtInfoShort", ColumnKind::Binary),
                   Column("RmtInfoLong", ColumnKind::LongBinary),
                   Column("Lv", ColumnKind::LongBinary),
                   Column("LvProp", ColumnKind::LongBinary),
                   Column("LvModule", ColumnKind::LongBinary),
                   Column("LvExtra", ColumnKind::LongBinary)};
  table.Indexes = {Index("ParentIdName", {1, 2}, kIndexUnique), Index("Id", {0}, kIndexUnique)};
  return table;
}

TableLayout PermissionsTable() {
  TableLayout table;
  table.Page = kPermissionsPage;
  table.Columns = {Column("ObjectId", ColumnKind::Long),
                   Column("SID", ColumnKind::Binary, kIdColumn), Column("ACM", ColumnKind::Long),
                   Column("FInheritable", ColumnKind::YesNo)};
  table.Indexes = {Index("ObjectId", {0}, kIndexRequired)};
  return table;
}

TableLayout QueriesTable() {
  TableLayout table;
  table.Page = kQueriesPage;
  table.Columns = {Column("ObjectId", ColumnKind::Long), Column("Attribute", ColumnKind::OneByte),
                   Column("Order", ColumnKind::Binary),  Column("Name1", ColumnKind::Text),
                   Column("Name2", ColumnKind::Text),    Column("Expression", ColumnKind::Memo),
                   Column("Flag", ColumnKind::Short),    Column("LvExtra", ColumnKind::Long)};
  table.Indexes = {Index("ObjectIdAttribute", {0, 1, 2}, kIndexUnique)};
  return table;
}

TableLayout RelationshipsTable() {
  TableLayout table;
  table.Page = kRelationshipsPage;
  table.Columns = {Column("szRelationship", ColumnKind::Text),
                   Column("grbit", ColumnKind::Long),
                   Column("ccolumn", ColumnKind::Long),
                   Column("icolumn", ColumnKind::Long),
                   Column("szObject", ColumnKind::Text),
                   Column("szColumn", ColumnKind::Text),
                   Column("szReferencedObject", ColumnKind::Text),
                   Column("szReferencedColumn", ColumnKind::Text)};
  table.Indexes = {Index("szRelationship", {0}, kIndexSkipsNulls),
                   Index("szObject", {4}, kIndexSkipsNulls),
                   Index("szReferencedObject", {6}, kIndexSkipsNulls)};
  return table;
}

/// Now, as a date-time of the local clock, to the second.
double NowSerial() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  const Date today{std::chrono::year{local.tm_year + 1900},
                   std::chrono::month{static_cast<unsigned>(local.tm_mon + 1)},
                   std::chrono::day{static_cast<unsigned>(local.tm_mday)}};
  const int seconds = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
  return static_cast<double>(DaysFromDate(today)) + seconds / 86400.0;
}

void Set(RawRow& row, const TableLayout& table, std::string_view column, const Value& value) {
  const std::size_t place = table.FindColumn(column);
  row.at(place) = EncodeValue(value, table.Columns[place]);
}

struct Object {
  std::int64_t Id;
  std::int64_t Parent;
  std::string Name;
  std::int64_t Type;
  Bytes Owner;
  std::int64_t Flags;
  Bytes Properties = {};
};

void SetProperties(PageChanges& pages, RawRow& row, const TableLayout& table,
                   const Bytes& properties) {
  const std::size_t place = table.FindColumn("LvProp");
  if (!properties.empty() && place < row.size() && HasRoomForLong(table, table.Columns[place])) {
    row[place] = StoreLong(pages, table, table.Columns[place], properties);
  }
}

void AddObject(PageChanges& pages, const Object& object, double stamp) {
  TableWriter writer(pages, kObjectsPage);
  const TableLayout& table = writer.Layout();
  RawRow row(table.Columns.size());
  Set(row, table, "Id", object.Id);
  Set(row, table, "ParentId", object.Parent);
  Set(row, table, "Name", object.Name);
  Set(row, table, "Type", object.Type);
  Set(row, table, "DateCreate", stamp);
  Set(row, table, "DateUpdate", stamp);
  row.at(table.FindColumn("Owner")) = object.Owner;
  Set(row, table, "Flags", object.Flags);
  SetProperties(pages, row, table, object.Properties);
  writer.Insert(row);
}

struct Permission {
  std::int64_t Object;
  Bytes Who;
  std::int64_t What;
  bool IsInherited;
};

void AddPermission(PageChanges& pages, const Permission& permission) {
  TableWriter writer(pages, kPermissionsPage);
  const TableLayout& table = writer.Layout();
  RawRow row(table.Columns.size());
  Set(row, table, "ObjectId", permission.Object);
  row.at(table.FindColumn("SID")) = permission.Who;
  Set(row, table, "ACM", permission.What);
  Set(row, table, "FInheritable", std::int64_t{permission.IsInherited ? 1 : 0});
  writer.Insert(row);
}

/// Who has permissions on the container of all tables, and so on each table.
std::vector<Bytes> UsersOfTables(PageChanges& pages) {
  const TableImage image(pages, kPermissionsPage);
  const TableLayout& table = image.Layout();
  const ColumnLayout& object = table.Columns.at(table.FindColumn("ObjectId"));
  const ColumnLayout& who = table.Columns.at(table.FindColumn("SID"));
  const CellReader reader(pages);
  std::vector<Bytes> users;
  for (std::size_t i = 0; i < image.RowCount(); ++i) {
    const Cell user = reader.Read(image.View(i), who);
    if (reader.Read(image.View(i), object) == Cell(kTablesId) &&
        std::holds_alternative<Bytes>(user)) {
      users.push_back(std::get<Bytes>(user));
    }
  }
  return users;
}

/// The owner that the file's own objects have.
Bytes OwnerOfDatabase(PageChanges& pages) {
  const TableImage image(pages, kObjectsPage);
  const TableLayout& table = image.Layout();
  const CellReader reader(pages);
  for (std::size_t i = 0; i < image.RowCount(); ++i) {
    const RowView row = image.View(i);
    const Cell owner = reader.Read(row, table.Columns.at(table.FindColumn("Owner")));
    if (reader.Read(row, table.Columns.at(table.FindColumn("Id"))) == Cell(kDatabaseId) &&
        std::holds_alternative<Bytes>(owner)) {
      return std::get<Bytes>(owner);
    }
  }
  return kOwners;
}

std::vector<Object> FirstObjects() {
  return {{kTablesId, kRootId, "Tables", kContainer, kEngine, kSystemFlag},
          {kDatabasesId, kRootId, "Databases", kContainer, kEngine, kSystemFlag},
          {kRelationshipsId, kRootId, "Relationships", kContainer, kEngine, kSystemFlag},
          {kDatabaseId, kDatabasesId, "MSysDb", kDatabase, kOwners, kSystemFlag},
          {kObjectsPage, kTablesId, "MSysObjects", kTable, kEngine, kSystemFlag},
          {kPermissionsPage, kTablesId, "MSysACEs", kTable, kEngine, kSystemFlag},
          {kQueriesPage, kTablesId, "MSysQueries", kTable, kEngine, kSystemFlag},
          {kRelationshipsPage, kTablesId, "MSysRelationships", kTable, kEngine, kSystemFlag}};
}

std::vector<Permission> FirstPermissions() {
  return {{kDatabasesId, kOwners, 0x60000, false},
          {kRelationshipsId, kCreator, 0xF00FE, true},
          {kRelationshipsId, kOwners, 0x60001, false},
          {kRelationshipsId, kAdministrators, kEverything, true},
          {kRelationshipsId, kEverybody, kEverything, true},
          {kTablesId, kCreator, 0xF00FE, true},
          {kTablesId, kOwners, 0xFFEFF, true},
          {kTablesId, kAdministrators, 0xFFEFF, true},
          {kTablesId, kEverybody, 0xFFEFF, true},
          {kDatabaseId, kOwners, 0x6000E, false},
          {kDatabaseId, kEverybody, 0xE, false},
          {kDatabaseId, kAdministrators, 0x6000E, false},
          {kPermissionsPage, kOwners, 0x60000, false},
          {kPermissionsPage, kAdministrators, 0x60054, false},
          {kObjectsPage, kOwners, 0x60000, false},
          {kObjectsPage, kAdministrators, 0x60054, false},
          {kObjectsPage, kEverybody, 0x14, false},
          {kQueriesPage, kOwners, 0x60000, false},
          {kQueriesPage, kAdministrators, 0x60014, false},
          {kQueriesPage, kEverybody, 0x14, false},
          {kRelationshipsPage, kOwners, 0xE0000, false},
          {kRelationshipsPage, kAdministrators, 0x60014, false},
          {kRelationshipsPage, kEverybody, 0x14, false}};
}

}  // namespace

void EnterInCatalogue(PageChanges& pages, const std::string& name, PageNumber definition,
                      const Bytes& properties) {
  AddObject(pages, {definition, kTablesId, name, kTable, OwnerOfDatabase(pages), 0, properties},
            NowSerial());
  for (const Bytes& user : UsersOfTables(pages)) {
    AddPermission(pages, {definition, user, kEverything, true});
  }
}

void WriteSystemTables(PageChanges& pages) {
  std::vector<TableLayout> tables = {ObjectsTable(), PermissionsTable(), QueriesTable(),
                                     RelationshipsTable()};
  for (std::size_t i = 0; i < tables.size(); ++i) {
    pages.Grow();
  }
  for (TableLayout& table : tables) {
    table.IsSystem = true;
    LayOut(table);
    WriteTable(pages, table);
  }
  for (const Object& object : FirstObjects()) {
    AddObject(pages, object, kCreationStamp);
  }
  for (const Permission& permission : FirstPermissions()) {
    AddPermission(pages, permission);
  }
}

}  // namespace veyra::access
