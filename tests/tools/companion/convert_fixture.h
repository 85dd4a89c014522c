#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_command.h"
#include "tools/companion/convert_command.h"

namespace veyra {

using Lines = std::vector<std::string>;

inline const Date kToday = MakeDate(2026, 11, 21).value();
inline constexpr const char* kKept = "Calendar-before-2026-11-21.mdb";

inline std::string ValueText(const Value& value) {
  return IsNull(value) ? "\\N" : ToText(value);
}

/// All rows of a table, a line each, in the order of the file; dates as ISO texts.
inline Lines RowsOf(Store& store, const std::string& table) {
  Query query;
  query.Table = table;
  query.WithTimes = true;
  const auto rows = store.Select(query);
  Lines lines;
  for (Row row; rows->Next(row);) {
    std::string line;
    for (const Value& value : row.Values) {
      line += (line.empty() ? "" : "|") + ValueText(value);
    }
    lines.push_back(line);
  }
  return lines;
}

/// The whole of a database, tables and columns included.
inline Lines Everything(Store& store) {
  Lines lines;
  for (const std::string& table : store.TableNames()) {
    lines.push_back("table " + table);
    for (const std::string& column : store.ColumnNames(table)) {
      lines.push_back(column);
    }
    const Lines rows = RowsOf(store, table);
    lines.insert(lines.end(), rows.begin(), rows.end());
  }
  return lines;
}

/// The command in a folder with a calendar.
class ConvertCommandTest : public ::testing::Test {
 protected:
  std::string File() const { return temp_.File("Calendar.mdb").string(); }

  void Convert(
      const std::string& to, const CopyObserver& observer = [](const CopyStep&) {}) {
    RunWith(ConvertCommand(kToday, observer), {temp_.path().string(), "--to=" + to}, out_);
  }

  std::unique_ptr<Store> Make(FileKind kind) const {
    auto store = CreateStore(File(), Durability::WhenAsked, kind);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    return store;
  }

  std::unique_ptr<Store> Open(StoreAccess access = StoreAccess::ReadOnly) const {
    return OpenStore(File(), access);
  }

  FileKind Kind() const { return Open()->Describe().Kind; }

  /// Facilities with gaps in their numbers, and bookings of every sort.
  static void Fill(Store& store, int bookings) {
    const char* names[] = {"Main Hall", "Café 🎂", "Зал", ""};
    for (std::int64_t i = 0; i < 4; ++i) {
      store.Insert("Rooms", {{"ID", i * i + 2}, {"Name", names[i]}, {"Active", std::int64_t{0}}});
    }
    store.Insert("Rooms", {{"ID", std::int64_t{40}}});
    for (std::int64_t i = 0; i < bookings; ++i) {
      AddBooking(store, i);
    }
  }

  static void AddBooking(Store& store, std::int64_t i) {
    const Date day{std::chrono::sys_days(kToday) - std::chrono::days(i * 37 % 9000)};
    const Value keys[] = {Null{}, 0.0, 20140406153012.0 + static_cast<double>(i)};
    const Value events[] = {"Smith", Null{}, "", "Tea 🍰 for two", std::string(50, 'W'), "O'Hara"};
    store.Insert("Reserv", {{"RmID", i * 3 % 7},
                            {"Event", events[i % 6]},
                            {"DateOfRes", i % 19 == 0 ? Value(Null{}) : Value(day)},
                            {"TimeFrom", i % 48 + 1},
                            {"TimeTo", std::int64_t{48}},
                            {"MultKey", keys[i % 3]}});
  }

  /// A calendar with one more table, of a column of every type.
  static TableDefinition Notes() {
    return {.Name = "Notes",
            .Columns = {{.Name = "Nr", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                        {.Name = "Note", .Type = ColumnType::Text, .Size = 50},
                        {.Name = "Paper", .Type = ColumnType::Text},
                        {.Name = "Price", .Type = ColumnType::Double},
                        {.Name = "At", .Type = ColumnType::Day},
                        {.Name = "Pieces", .Type = ColumnType::WholeNumber}}};
  }

  static const ColumnDescription& Column(const StoreDescription& store, const std::string& name) {
    for (const TableDescription& table : store.Tables) {
      for (const ColumnDescription& column : table.Columns) {
        if (column.Name == name) {
          return column;
        }
      }
    }
    throw std::runtime_error("no column " + name);
  }

  /// Converts, expecting a report that says `cause`; the folder must be as it was.
  void ExpectRefusal(const std::string& to, const std::string& cause) {
    const Lines names = temp_.Names();
    const std::string bytes = temp_.Read("Calendar.mdb");
    try {
      Convert(to);
      ADD_FAILURE() << "converted";
    } catch (const Error& error) {
      EXPECT_NE(std::string::npos, error.report().Cause.English().find(cause)) << error.what();
      EXPECT_EQ(File(), error.report().File);
    }
    EXPECT_EQ(names, temp_.Names());
    EXPECT_TRUE(bytes == temp_.Read("Calendar.mdb"));
  }

  TempFolder temp_;
  std::ostringstream out_;
};

/// To each kind of file.
class ConvertToTest : public ConvertCommandTest, public ::testing::WithParamInterface<const char*> {
 protected:
  std::string To() const { return GetParam(); }
  FileKind From() const { return To() == "access" ? FileKind::Sqlite : FileKind::Access; }

  /// In a program of its own, which is killed at that step.
  void ConvertAndBeKilledWhile(const std::string& verb, std::int64_t row) {
    const pid_t child = fork();
    if (child == 0) {
      Convert(To(), [&](const CopyStep& step) {
        if (step.Verb == verb && step.Rows == row) {
          raise(SIGKILL);
        }
      });
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  void RefuseToGoOnAfter(const std::string& verb) {
    Fill(*Make(From()), 10);
    const std::string before = temp_.Read("Calendar.mdb");
    const auto break_off = [&](const CopyStep& step) {
      if (step.Verb == verb && step.Rows == 12) {
        throw std::runtime_error("broken off");
      }
    };
    EXPECT_THROW(Convert(To(), break_off), std::runtime_error);
    EXPECT_EQ(Lines{"Calendar.mdb"}, temp_.Names());
    EXPECT_TRUE(before == temp_.Read("Calendar.mdb"));
  }
};

}  // namespace veyra
