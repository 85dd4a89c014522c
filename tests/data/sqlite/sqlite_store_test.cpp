#include "data/sqlite/sqlite_store.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

using std::chrono::milliseconds;

/// Files that another program made, with tables this program would never make, and files that
/// another program is using.
class SqliteStoreTest : public testing::Test {
 protected:
  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  void Foreign(const std::string& sql) { ForeignProgram(File()).Run(sql); }
  std::string Shell(const std::string& sql) { return ForeignProgram(File()).Rows(sql); }

  void Open(milliseconds timeout = milliseconds(50)) {
    store_.reset();
    store_ = OpenStore(File(), StoreAccess::ReadWrite, timeout);
  }

  std::vector<Row> Rows(const std::string& sql = "SELECT * FROM T") {
    std::vector<Row> rows;
    const auto source = store_->Select(ParseQuery(sql));
    for (Row row; source->Next(row);) {
      rows.push_back(row);
    }
    return rows;
  }

  std::string Column(std::size_t column, const std::string& sql = "SELECT * FROM T") {
    std::string text;
    for (const Row& row : Rows(sql)) {
      text += ToText(row.Values.at(column)) + ";";
    }
    return text;
  }

  /// Whether the first row can be changed as it was read: its column `name` set to a text.
  void ChangeFirst(const std::string& name) { store_->Update("T", Rows().at(0), {{name, "new"}}); }

  TempFolder folder_;
  std::unique_ptr<Store> store_;
};

// Values as another program stored them

TEST_F(SqliteStoreTest, ReadsEachKindOfValue) {
  Foreign("CREATE TABLE T(a); INSERT INTO T VALUES (1), (1.5), ('x'), (x'6100'), (NULL)");
  Open();
  const auto rows = Rows();
  EXPECT_EQ(Value(std::int64_t{1}), rows.at(0).Values.at(0));
  EXPECT_EQ(Value(1.5), rows.at(1).Values.at(0));
  EXPECT_EQ(Value("x"), rows.at(2).Values.at(0));
  EXPECT_EQ(Value(std::string("a\0", 2)), rows.at(3).Values.at(0));
  EXPECT_EQ(Value(Null{}), rows.at(4).Values.at(0));
}

struct OddValue {
  const char* Name;
  const char* Declared;
  const char* Literal;
};

class OddValueTest : public SqliteStoreTest, public testing::WithParamInterface<OddValue> {};

TEST_P(OddValueTest, ChangesARowThatHoldsIt) {
  const OddValue& odd = GetParam();
  Foreign(std::string("CREATE TABLE T(odd ") + odd.Declared + ", other); INSERT INTO T VALUES (" +
          odd.Literal + ", 'old')");
  Open();
  ChangeFirst("other");
  store_.reset();
  EXPECT_EQ("new|1\n", Shell(std::string("SELECT other, odd IS ") + odd.Literal + " FROM T"));
}

INSTANTIATE_TEST_SUITE_P(
    Values, OddValueTest,
    testing::Values(OddValue{"TextInIntegerColumn", "INTEGER", "'soon'"},
                    OddValue{"NumberInTextColumn", "TEXT", "'19'"},
                    OddValue{"NumberInUntypedColumn", "", "19"},
                    OddValue{"GroupKey", "DOUBLE", "20140406153012.0"},
                    OddValue{"Fraction", "DOUBLE", "0.1"},
                    OddValue{"GreatDouble", "DOUBLE", "1.7976931348623157e308"},
                    OddValue{"GreatestInteger", "INTEGER", "9223372036854775807"},
                    OddValue{"Null", "INTEGER", "NULL"}, OddValue{"EmptyText", "TEXT", "''"},
                    OddValue{"Blob", "TEXT", "x'00ff41'"}, OddValue{"EmptyBlob", "TEXT", "x''"},
                    OddValue{"InvalidUtf8", "TEXT", "CAST(x'c328ff' AS TEXT)"},
                    OddValue{"NulInText", "TEXT", "CAST(x'610062' AS TEXT)"},
                    OddValue{"Quotes", "TEXT", "'it''s \"it\"'"}),
    [](const auto& value) { return value.param.Name; });

TEST_F(SqliteStoreTest, NoticesAChangeThatTheColumnTakesForEqual) {
  Foreign("CREATE TABLE T(name TEXT COLLATE NOCASE, n); INSERT INTO T VALUES ('pool', 1)");
  Open();
  const Row row = Rows().at(0);
  Foreign("UPDATE T SET name = 'POOL'");
  EXPECT_THROW(store_->Update("T", row, {{"n", std::int64_t{2}}}), RowChangedError);
}

TEST_F(SqliteStoreTest, NoticesANumberThatBecameAText) {
  Foreign("CREATE TABLE T(a, n); INSERT INTO T VALUES (1, 1)");
  Open();
  const Row row = Rows().at(0);
  Foreign("UPDATE T SET a = '1'");
  EXPECT_THROW(store_->Delete("T", row), RowChangedError);
}

TEST_F(SqliteStoreTest, ReadsAFileInUtf16) {
  Foreign("PRAGMA encoding = 'UTF-16'; CREATE TABLE T(a); INSERT INTO T VALUES ('caf\xC3\xA9')");
  Open();
  EXPECT_EQ("caf\xC3\xA9;", Column(0));
}

TEST_F(SqliteStoreTest, KeepsDatesAsIsoText) {
  Foreign("CREATE TABLE T(d DATE)");
  Open();
  store_->Insert("T", {{"d", DateFromIsoText("2014-04-06").value()}});
  store_.reset();
  EXPECT_EQ("text|2014-04-06\n", Shell("SELECT typeof(d), d FROM T"));
}

TEST_F(SqliteStoreTest, KeepsSlotsAndKeysAsNumbers) {
  CreateStore(File())->CreateTable(ReservTable());
  Open();
  store_->Insert("Reserv", {{"TimeFrom", 19}, {"MultKey", 20140406153012.0}});
  store_.reset();
  EXPECT_EQ("integer|real|null\n",
            Shell("SELECT typeof(TimeFrom), typeof(MultKey), typeof(TimeTo) FROM Reserv"));
}

// Tables as another program made them

TEST_F(SqliteStoreTest, ReadsATableWhoseColumnHidesTheRowNumber) {
  Foreign("CREATE TABLE T(rowid TEXT, n); INSERT INTO T VALUES ('z', 1), ('a', 2)");
  Open();
  EXPECT_EQ("z;a;", Column(0));
}

TEST_F(SqliteStoreTest, ChangesARowWhoseColumnHidesTheRowNumber) {
  Foreign("CREATE TABLE T(RowId TEXT, n); INSERT INTO T VALUES ('z', 1), ('a', 2)");
  Open();
  store_->Update("T", Rows().at(1), {{"rowid", "b"}});
  EXPECT_EQ("z;b;", Column(0));
}

TEST_F(SqliteStoreTest, ReadsATableWhoseColumnsHideEveryNameOfTheRowNumber) {
  Foreign("CREATE TABLE T(rowid, _rowid_, oid); INSERT INTO T VALUES (7, 8, 9)");
  Open();
  EXPECT_EQ("8;", Column(1));
}

TEST_F(SqliteStoreTest, ReadsATableWithoutRowNumbers) {
  Foreign("CREATE TABLE T(a PRIMARY KEY, b) WITHOUT ROWID; INSERT INTO T VALUES ('k', 'v')");
  Open();
  EXPECT_EQ("v;", Column(1));
}

TEST_F(SqliteStoreTest, RefusesToChangeATableWithoutRowNumbers) {
  Foreign("CREATE TABLE T(a PRIMARY KEY, b) WITHOUT ROWID; INSERT INTO T VALUES ('k', 'v')");
  Open();
  EXPECT_THROW(store_->Delete("T", Rows().at(0)), DatabaseError);
  EXPECT_EQ("k;", Column(0));
}

TEST_F(SqliteStoreTest, ReadsAView) {
  Foreign(
      "CREATE TABLE People(n); INSERT INTO People VALUES ('Ann'); CREATE VIEW T AS SELECT n FROM "
      "People");
  Open();
  EXPECT_EQ("Ann;", Column(0));
}

TEST_F(SqliteStoreTest, NamesNoneOfTheTablesOfSqliteItself) {
  CreateStore(File())->CreateTable(RoomsTable());
  Open();
  EXPECT_EQ(std::vector<std::string>{"Rooms"}, store_->TableNames());
}

TEST_F(SqliteStoreTest, LeavesComputedColumnsToTheFile) {
  Foreign("CREATE TABLE T(a INTEGER, twice AS (a * 2), b)");
  Open();
  EXPECT_EQ(Value(std::int64_t{6}), store_->Insert("T", {{"a", std::int64_t{3}}}).Values.at(1));
}

TEST_F(SqliteStoreTest, UnderstandsNamesWithQuotesAndBlanks) {
  Foreign("CREATE TABLE \"my \"\"T\"\" ] '\" (\"a \"\"b\"\" c\")");
  Open();
  store_->Insert("my \"T\" ] '", {{"a \"b\" c", "x"}});
  const auto source =
      store_->Select({.Table = "my \"T\" ] '", .Where = {}, .OrderBy = {{.Column = "a \"b\" c"}}});
  Row row;
  ASSERT_TRUE(source->Next(row));
  EXPECT_EQ(Value("x"), row.Values.at(0));
}

TEST_F(SqliteStoreTest, TakesARuleOfTheFileForAReport) {
  Foreign("CREATE TABLE T(a NOT NULL)");
  Open();
  EXPECT_THROW(store_->Insert("T", {}), DatabaseError);
}

TEST_F(SqliteStoreTest, SeesAColumnThatWasRenamed) {
  Foreign("CREATE TABLE T(a, b); INSERT INTO T VALUES (1, 2)");
  Open();
  EXPECT_EQ("1;", Column(0, "SELECT * FROM T WHERE a = 1"));
  Foreign("ALTER TABLE T RENAME COLUMN a TO c");
  EXPECT_THROW(Rows("SELECT * FROM T WHERE a = 1"), DatabaseError);
  EXPECT_EQ("1;", Column(0, "SELECT * FROM T WHERE c = 1"));
}

TEST_F(SqliteStoreTest, ReportsATableThatWasDropped) {
  Foreign("CREATE TABLE T(a)");
  Open();
  EXPECT_EQ("", Column(0));
  Foreign("DROP TABLE T");
  try {
    Rows();
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("The file has no table T.", error.report().Cause);
  }
}

TEST_F(SqliteStoreTest, GoesOnAfterAQuestionThatFailed) {
  Foreign("CREATE TABLE T(a); INSERT INTO T VALUES (1)");
  Open();
  EXPECT_THROW(Rows("SELECT * FROM T WHERE x = 1"), DatabaseError);
  EXPECT_EQ("1;", Column(0));
}

// Another program holds the file

TEST_F(SqliteStoreTest, ReportsAFileThatIsLockedWhenItIsOpened) {
  Foreign("CREATE TABLE T(a)");
  ForeignProgram other(File());
  other.Run("BEGIN EXCLUSIVE");
  try {
    Open();
    FAIL() << "no report";
  } catch (const DatabaseBusyError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_EQ("Another program is using the file and did not let go of it.", error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
}

TEST_F(SqliteStoreTest, ReportsAFileThatIsLockedWhenItIsOpenedForReading) {
  Foreign("CREATE TABLE T(a)");
  ForeignProgram other(File());
  other.Run("BEGIN EXCLUSIVE");
  EXPECT_THROW(OpenStore(File(), StoreAccess::ReadOnly, milliseconds(50)), DatabaseBusyError);
}

TEST_F(SqliteStoreTest, OpensAFileThatAnotherProgramIsReading) {
  Foreign("CREATE TABLE T(a); INSERT INTO T VALUES (1)");
  ForeignProgram other(File());
  other.Run("BEGIN; SELECT * FROM T");
  Open();
  EXPECT_EQ("1;", Column(0));
}

TEST_F(SqliteStoreTest, WritesOnceAReaderThatKeptTheJournalIsGone) {
  Foreign("CREATE TABLE T(a)");
  {
    ForeignProgram other(File());
    other.Run("BEGIN; SELECT * FROM T");
    Open();
  }
  store_->Insert("T", {{"a", "x"}});
  EXPECT_EQ("x;", Column(0));
}

TEST_F(SqliteStoreTest, ReportsALockHeldLongerThanTheTimeout) {
  Foreign("CREATE TABLE T(a)");
  Open();
  ForeignProgram other(File());
  other.Run("BEGIN IMMEDIATE");
  EXPECT_THROW(store_->Insert("T", {{"a", "x"}}), DatabaseBusyError);
  EXPECT_EQ("", Column(0));
}

TEST_F(SqliteStoreTest, WritesWhenTheLockIsGone) {
  Foreign("CREATE TABLE T(a)");
  Open();
  ForeignProgram other(File());
  other.Run("BEGIN IMMEDIATE");
  EXPECT_THROW(store_->Insert("T", {{"a", "x"}}), DatabaseBusyError);
  other.Run("ROLLBACK");
  store_->Insert("T", {{"a", "y"}});
  EXPECT_EQ("y;", Column(0));
}

TEST_F(SqliteStoreTest, ReadsWhileAnotherProgramWrites) {
  Foreign("CREATE TABLE T(a); INSERT INTO T VALUES ('before')");
  Open();
  ForeignProgram other(File());
  other.Run("BEGIN IMMEDIATE; UPDATE T SET a = 'during'");
  EXPECT_EQ("before;", Column(0));
}

TEST_F(SqliteStoreTest, RefusesToRemoveARowFromUnderAWriterThatCameFirst) {
  Foreign("CREATE TABLE T(a); INSERT INTO T VALUES ('mine')");
  Open();
  const Row row = Rows().at(0);
  ForeignProgram other(File());
  other.Run("BEGIN IMMEDIATE; UPDATE T SET a = 'theirs'; COMMIT");
  EXPECT_THROW(store_->Delete("T", row), RowChangedError);
  EXPECT_EQ("theirs;", Column(0));
}

// Durability

TEST_F(SqliteStoreTest, KeepsALogAndFlushesItAtEachChange) {
  Foreign("CREATE TABLE T(a)");
  Open();
  store_->Insert("T", {{"a", "x"}});
  EXPECT_EQ("wal\n", Shell("PRAGMA journal_mode"));
}

TEST_F(SqliteStoreTest, ShowsAChangeToOtherProgramsAtOnce) {
  Foreign("CREATE TABLE T(a)");
  Open();
  store_->Insert("T", {{"a", "x"}});
  EXPECT_EQ("x\n", Shell("SELECT a FROM T"));
}

/// The disk as a loss of power would leave it: the file and its log, copied while both are open.
TEST_F(SqliteStoreTest, KeepsABookingWhenTheProgramEndsWithoutClosing) {
  Foreign("CREATE TABLE T(a)");
  Open();
  store_->Insert("T", {{"a", "booked"}});
  std::filesystem::copy_file(File(), folder_.File("after"));
  std::filesystem::copy_file(File() + "-wal", folder_.File("after-wal"));
  EXPECT_EQ("booked\n", ForeignProgram(folder_.File("after").string()).Rows("SELECT a FROM T"));
}

TEST_F(SqliteStoreTest, LeavesRowsAndSchemaOfAnOpenedFileAlone) {
  Foreign("CREATE TABLE T(a, b DEFAULT 3); CREATE INDEX I ON T(a); INSERT INTO T(a) VALUES (1)");
  const std::string before = Shell("SELECT * FROM sqlite_schema; SELECT * FROM T");
  Open();
  Rows();
  store_.reset();
  EXPECT_EQ(before, Shell("SELECT * FROM sqlite_schema; SELECT * FROM T"));
}

// The indexes of a new calendar

class NewCalendarTest : public SqliteStoreTest {
 protected:
  NewCalendarTest() { CreateStore(File())->CreateTable(ReservTable()); }

  std::string PlanOf(const std::string& sql) { return Shell("EXPLAIN QUERY PLAN " + sql); }
};

/// The rows of a month lie where they were entered, all over the file. Only of bookings that begin
/// together the index does not have the order.
TEST_F(NewCalendarTest, FindsADayOfTheMonthInItsIndexAloneAlreadyInOrder) {
  const std::string plan = PlanOf(
      "SELECT rowid, * FROM Reserv WHERE (RmID = 1 AND DateOfRes = '2014-04-06') ORDER BY "
      "TimeFrom, rowid");
  EXPECT_NE(std::string::npos, plan.find("COVERING INDEX ReservByDay (RmID=? AND DateOfRes=?)"))
      << plan;
  EXPECT_EQ(std::string::npos, plan.find("TEMP B-TREE FOR ORDER BY")) << plan;
}

TEST_F(NewCalendarTest, FindsAClashByItsIndex) {
  const std::string plan = PlanOf(
      "SELECT rowid, * FROM Reserv WHERE (DateOfRes = '2014-04-06' AND ((18 >= TimeFrom AND 18 "
      "<= TimeTo) OR (20 >= TimeFrom AND 20 <= TimeTo))) ORDER BY rowid");
  EXPECT_NE(std::string::npos, plan.find("INDEX ReservByDate (DateOfRes=?)")) << plan;
}

TEST_F(NewCalendarTest, FindsAGroupByItsIndex) {
  const std::string plan = PlanOf(
      "SELECT rowid, * FROM Reserv WHERE (RmID = 1 AND MultKey = 20140406153012) ORDER BY rowid");
  EXPECT_NE(std::string::npos, plan.find("INDEX ReservByGroup (RmID=? AND MultKey=?)")) << plan;
}

}  // namespace
}  // namespace veyra
