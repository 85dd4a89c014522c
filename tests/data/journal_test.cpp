#include "data/journal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "data/access/write/journal_writer.h"
#include "data/open_file_store.h"
#include "data/schema.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

TEST(JournalTextTest, WhatIsWrittenIsRead) {
  const FieldValues fields{{"a]b", std::string("O'Hara, [x]='y'")},
                           {"n", Null{}},
                           {"w", std::numeric_limits<std::int64_t>::min()},
                           {"d", 20260302093000.0},
                           {"e", 0.1 + 0.2},
                           {"empty", std::string()}};
  std::vector<std::string> names;
  std::vector<Value> values;
  for (const auto& [name, value] : fields) {
    names.push_back(name);
    values.push_back(value);
  }
  EXPECT_EQ(fields, ParseJournalText(JournalText(names, values)));
}

TEST(JournalTextTest, AnythingElseIsNoRow) {
  for (const char* text : {"", "[a]", "[a]=", "[a]=1,", "[a]=1, ", "[a]='x", "[a=1", "a=1",
                           "[a]=X'00'", "[a]=1x", "[a]=1, [b]=2 "}) {
    EXPECT_EQ(std::nullopt, ParseJournalText(text)) << text;
  }
}

/// The journal of every kind of file.
class JournalTest : public testing::TestWithParam<StoreKind> {
 protected:
  JournalTest() {
    const auto store = CreateStoreOfKind(GetParam(), File());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
  }

  std::string File() const { return temp_.File("Calendar.mdb").string(); }
  std::unique_ptr<FileStore> Open() const { return OpenFileStore(File(), StoreAccess::ReadWrite); }

  static Row Book(Store& store, const std::string& name, std::int64_t facility = 1) {
    return store.Insert("Reserv", {{"RmID", facility},
                                   {"Event", name},
                                   {"DateOfRes", MakeDate(2026, 3, 5).value()},
                                   {"TimeFrom", std::int64_t{1}},
                                   {"TimeTo", std::int64_t{2}}});
  }

  /// The entries, a line each: number, action, name, values.
  std::string Entries() const {
    std::string lines;
    const auto store = Open();
    const auto rows = store->Select(ParseQuery("SELECT * FROM ChangeJournal ORDER BY ID"));
    for (Row row; rows->Next(row);) {
      const auto text = [&](std::size_t column) {
        return IsNull(row.Values[column]) ? std::string("-") : ToText(row.Values[column]);
      };
      lines += text(0) + " " + text(1) + " " + text(3) + " " + text(4) + ": " + text(5) + " > " +
               text(6) + "\n";
    }
    return lines;
  }

  TempFolder temp_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, JournalTest, testing::ValuesIn(kAllStoreKinds),
                         [](const auto& kind) { return std::string(NameOf(kind.param)); });

TEST_P(JournalTest, AFileKeepsOneOnlyWhenItIsTold) {
  const auto store = Open();
  EXPECT_FALSE(store->KeepsJournal());
  Book(*store, "before");
  store->KeepJournal(true);
  EXPECT_TRUE(store->KeepsJournal());
  Book(*store, "meanwhile");
  store->KeepJournal(false);
  EXPECT_FALSE(store->KeepsJournal());
  Book(*store, "after");
  const std::string entries = Entries();
  EXPECT_EQ(std::string::npos, entries.find("before"));
  EXPECT_NE(std::string::npos, entries.find("meanwhile"));
  EXPECT_EQ(std::string::npos, entries.find("after"));
  store->KeepJournal(true);
  Book(*store, "again");
  EXPECT_NE(std::string::npos, Entries().find("meanwhile"));
  EXPECT_NE(std::string::npos, Entries().find("again"));
}

TEST_P(JournalTest, ItHoldsARowAsItWasAndAsItIs) {
  const auto store = Open();
  store->KeepJournal(true);
  const Row row = Book(*store, "O'Hara");
  const Row changed = store->Update("Reserv", row, {{"Event", std::string("Jones")}});
  store->Delete("Reserv", changed);
  const std::string rest = ", [DateOfRes]='2026-03-05', [TimeFrom]=1, [TimeTo]=2, [MultKey]=NULL";
  const std::string first = "[RmID]=1, [Event]='O''Hara'" + rest;
  const std::string second = "[RmID]=1, [Event]='Jones'" + rest;
  EXPECT_EQ("1 1 - Reserv: - > " + first + "\n2 2 - Reserv: " + first + " > " + second +
                "\n3 3 - Reserv: " + second + " > -\n",
            Entries());
}

TEST_P(JournalTest, AnActionHasTheNumberOfItsFirstEntry) {
  const auto store = Open();
  const auto other = Open();
  store->KeepJournal(true);
  Book(*store, "alone");
  {
    const JournalledAction outer(*store, "New series");
    const JournalledAction inner(*store, "not this");
    Book(*store, "one");
    Book(*other, "of another desk", 2);
    Book(*store, "two");
  }
  {
    const JournalledAction next(*store, "Next");
    Book(*store, "three");
  }
  std::string numbers;
  std::string entries = Entries();
  for (std::size_t at = 0; at < entries.size(); at = entries.find('\n', at) + 1) {
    numbers += entries.substr(at, entries.find(" Reserv", at) - at) + "\n";
  }
  EXPECT_EQ("1 1 -\n2 2 New series\n3 3 -\n4 2 New series\n5 5 Next\n", numbers);
}

TEST_P(JournalTest, WhatFailsIsNotEntered) {
  const auto store = Open();
  store->KeepJournal(true);
  const Row row = Book(*store, "one");
  Open()->Update("Reserv", row, {{"Event", std::string("changed")}});
  const std::string before = Entries();
  EXPECT_THROW(store->Delete("Reserv", row), RowChangedError);
  EXPECT_THROW(
      store->ChangeAll({{.What = RowChange::Kind::Add,
                         .Table = "Reserv",
                         .Fields = {{"Event", std::string("two")}}},
                        {.What = RowChange::Kind::Remove, .Table = "Reserv", .Before = row}},
                       {}),
      RowChangedError);
  EXPECT_EQ(before, Entries());
}

TEST_P(JournalTest, AColumnAndATableThatComeLaterAreEntered) {
  auto store = Open();
  store->KeepJournal(true);
  store->CreateTable(CalendarTables().back());
  store->AddColumn("Reserv", {.Name = "Note", .Type = ColumnType::Text, .Size = 50});
  store->Insert("Reserv", {{"Note", std::string("with milk")}});
  store->Insert("Settings", {{"BkGrnd", std::string("255")}});
  const std::string entries = Entries();
  EXPECT_NE(std::string::npos, entries.find("[Note]='with milk'")) << entries;
  EXPECT_NE(std::string::npos, entries.find("[BkGrnd]='255'")) << entries;
}

TEST_P(JournalTest, OtherTablesAreNotEntered) {
  const auto store = Open();
  store->KeepJournal(true);
  store->CreateTable(GuestTable());
  store->Insert("Guest", {{"Name", std::string("Ann")}});
  EXPECT_EQ("", Entries());
}

/// What other programs do to a SQLite file.
class ForeignJournalTest : public JournalTest {};

INSTANTIATE_TEST_SUITE_P(Kinds, ForeignJournalTest, testing::Values(StoreKind::Sqlite),
                         [](const auto& kind) { return std::string(NameOf(kind.param)); });

TEST_P(ForeignJournalTest, AnotherProgramsChangesAreEntered) {
  Open()->KeepJournal(true);
  ForeignProgram(File()).Run("INSERT INTO Reserv(Event, MultKey) VALUES('x', 0.1)");
  EXPECT_EQ(
      "1 - - Reserv: - > [RmID]=NULL, [Event]='x', [DateOfRes]=NULL, [TimeFrom]=NULL, "
      "[TimeTo]=NULL, [MultKey]=0.1\n",
      Entries());
}

TEST_P(ForeignJournalTest, AnotherProgramsTableOfThatNameIsLeftAlone) {
  ForeignProgram(File()).Run("CREATE TABLE ChangeJournal(Mine)");
  EXPECT_THROW(Open()->KeepJournal(true), DatabaseError);
  EXPECT_FALSE(Open()->KeepsJournal());
}

TEST_P(ForeignJournalTest, AJournalThatAnotherProgramDroppedBeginsAnew) {
  const auto store = Open();
  store->KeepJournal(true);
  Book(*store, "lost");
  ForeignProgram(File()).Run("DROP TABLE ChangeJournal");
  Book(*store, "kept");
  EXPECT_TRUE(store->KeepsJournal());
  const std::string entries = Entries();
  EXPECT_EQ(0U, entries.find("1 1 - Reserv: - > [RmID]=1, [Event]='kept'")) << entries;
  EXPECT_EQ(entries.find('\n'), entries.size() - 1) << entries;
}

TEST_P(ForeignJournalTest, AJournalThatAnotherProgramRenamedBeginsAnew) {
  const auto store = Open();
  store->KeepJournal(true);
  ForeignProgram(File()).Run("ALTER TABLE ChangeJournal RENAME TO Mine");
  Book(*store, "kept");
  EXPECT_NE(std::string::npos, Entries().find("[Event]='kept'"));
}

TEST_P(ForeignJournalTest, AJournalThatAnotherProgramChangedCanBeEnded) {
  const auto store = Open();
  store->KeepJournal(true);
  ForeignProgram(File()).Run("ALTER TABLE ChangeJournal DROP COLUMN ActionID");
  try {
    Book(*store, "refused");
    FAIL() << "booked";
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string::npos, error.report().Advice.English().find("veyra-data journal off"));
  }
  store->KeepJournal(false);
  Book(*store, "booked");
  EXPECT_FALSE(store->KeepsJournal());
}

/// The table is dropped by another program: what tells whether the journal is kept is still there.
TEST(AccessJournalTest, AFileWhoseJournalIsGoneIsBookedInAllTheSame) {
  const TempFolder temp;
  const std::string file = temp.File("Calendar.mdb").string();
  const auto store = CreateStoreOfKind(StoreKind::Access, file);
  store->CreateTable(ReservTable());
  store->CreateTable(access::JournalSwitchTable());
  store->Insert("Reserv", {{"Event", std::string("after")}});
  const auto files = OpenFileStore(file, StoreAccess::ReadWrite);
  EXPECT_FALSE(files->KeepsJournal());
  files->KeepJournal(true);
  files->Insert("Reserv", {{"Event", std::string("again")}});
  EXPECT_EQ(1, files->LastNumber(kJournalTable));
}

}  // namespace
}  // namespace veyra
