#include "tests/data/access/access_folder.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "data/access/write/create_file.h"

namespace veyra {

namespace {

ColumnDefinition Column(const std::string& name, ColumnType type, int size = 0,
                        bool auto_increment = false) {
  ColumnDefinition column;
  column.Name = name;
  column.Type = type;
  column.Size = size;
  column.AutoIncrement = auto_increment;
  return column;
}

std::string ValueText(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.0f", *number);
    return text.data();
  }
  return ToText(value);
}

}  // namespace

TableDefinition AccessRooms() {
  TableDefinition table;
  table.Name = "Rooms";
  table.Columns = {Column("ID", ColumnType::WholeNumber, 0, true),
                   Column("Name", ColumnType::Text, 50), Column("Active", ColumnType::WholeNumber)};
  return table;
}

TableDefinition AccessReserv() {
  TableDefinition table;
  table.Name = "Reserv";
  table.Columns = {
      Column("RmID", ColumnType::WholeNumber),   Column("Event", ColumnType::Text, 50),
      Column("DateOfRes", ColumnType::Day),      Column("TimeFrom", ColumnType::WholeNumber),
      Column("TimeTo", ColumnType::WholeNumber), Column("MultKey", ColumnType::Double)};
  table.Indexes = {{"RmID", {"RmID"}}, {"DateOfRes", {"DateOfRes"}}};
  return table;
}

AccessFolder::AccessFolder() {
  CreateAccessFile(Calendar());
  const auto store = Open();
  store->CreateTable(AccessRooms());
  store->CreateTable(AccessReserv());
}

std::unique_ptr<Store> AccessFolder::Open(StoreAccess access) const {
  return OpenAccessStore(Calendar(), access, std::chrono::milliseconds(200));
}

bool AccessFolder::HasOtherReader() {
  static const bool has = std::system("command -v mdb-export >/dev/null 2>&1") == 0;
  return has;
}

std::vector<std::string> AccessFolder::LinesOfCommand(const std::string& command) {
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> buffer{};
  while (pipe != nullptr) {
    const std::size_t read = fread(buffer.data(), 1, buffer.size(), pipe.get());
    if (read == 0) {
      break;
    }
    output.append(buffer.data(), read);
  }
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < output.size();) {
    const std::size_t end = std::min(output.find('\n', at), output.size());
    lines.push_back(output.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

std::vector<std::string> AccessFolder::OtherReader(const std::string& file,
                                                   const std::string& table) {
  auto lines = LinesOfCommand("LC_ALL=C.UTF-8 mdb-export -H -Q -d '|' -T '%Y-%m-%d' '" + file +
                              "' '" + table + "'");
  for (std::string& line : lines) {
    const std::size_t last = line.rfind('|');
    const std::string number = line.substr(last + 1);
    if (number.find('e') != std::string::npos) {
      line = line.substr(0, last + 1) + ValueText(std::strtod(number.c_str(), nullptr));
    }
  }
  return lines;
}

FieldValues Booking(std::int64_t room, const std::string& event, Date day, std::int64_t from,
                    std::int64_t to, Value key) {
  return {{"RmID", room},     {"Event", event}, {"DateOfRes", day},
          {"TimeFrom", from}, {"TimeTo", to},   {"MultKey", std::move(key)}};
}

std::vector<Row> AllRows(Store& store, const std::string& table) {
  Query query;
  query.Table = table;
  const auto source = store.Select(query);
  std::vector<Row> rows;
  for (Row row; source->Next(row);) {
    rows.push_back(row);
  }
  return rows;
}

std::string FirstDifference(const std::vector<std::string>& one,
                            const std::vector<std::string>& other) {
  const std::string kNone = "no line";
  for (std::size_t i = 0; i < std::max(one.size(), other.size()); ++i) {
    const std::string& left = i < one.size() ? one[i] : kNone;
    const std::string& right = i < other.size() ? other[i] : kNone;
    if (left != right) {
      return "line " + std::to_string(i) + ": " + left + " / " + right;
    }
  }
  return "";
}

std::string RowText(const Row& row) {
  std::string text;
  for (std::size_t i = 0; i < row.Values.size(); ++i) {
    text += (i == 0 ? "" : "|") + ValueText(row.Values[i]);
  }
  return text;
}

std::vector<std::string> RowTexts(Store& store, const std::string& table) {
  std::vector<std::string> texts;
  for (const Row& row : AllRows(store, table)) {
    texts.push_back(RowText(row));
  }
  return texts;
}

}  // namespace veyra
