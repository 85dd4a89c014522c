#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// What every kind of store does with a file as a whole, or with many rows at once.
class WholeStoreTest : public testing::TestWithParam<StoreKind> {
 protected:
  WholeStoreTest() {
    CreateStoreOfKind(GetParam(), File("Calendar.mdb"))->CreateTable(RoomsTable());
    store_ = OpenFileStore(File("Calendar.mdb"), StoreAccess::ReadWrite);
    AddRoom(*store_, "Pool");
    AddRoom(*store_, "Hall");
  }

  std::string File(const std::string& name) const { return folder_.File(name).string(); }

  static void AddRoom(Store& store, const std::string& name) {
    store.Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{0}}});
  }

  static QueryResult Rooms(Store& store) {
    QueryResult rooms{ParseQuery("SELECT * FROM Rooms"), {}};
    const auto source = store.Select(rooms.Asked);
    for (Row row; source->Next(row);) {
      rooms.Rows.push_back(row);
    }
    return rooms;
  }

  static std::string Names(Store& store) {
    std::string names;
    for (const Row& row : Rooms(store).Rows) {
      names += ToText(row.Values.at(1)) + ";";
    }
    return names;
  }

  std::string NamesIn(const std::string& file) const {
    return Names(*OpenFileStore(File(file), StoreAccess::ReadOnly));
  }

  static RowChange Added(const std::string& name) {
    return {.What = RowChange::Kind::Add, .Table = "Rooms", .Fields = {{"Name", name}}};
  }
  static RowChange Renamed(const Row& row, const std::string& name) {
    return {
        .What = RowChange::Kind::Set, .Table = "Rooms", .Before = row, .Fields = {{"Name", name}}};
  }
  static RowChange Removed(const Row& row) {
    return {.What = RowChange::Kind::Remove, .Table = "Rooms", .Before = row};
  }

  TempFolder folder_;
  std::unique_ptr<FileStore> store_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, WholeStoreTest, testing::ValuesIn(kAllStoreKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

TEST_P(WholeStoreTest, ManyChangesAreMadeInTheirOrder) {
  const QueryResult rooms = Rooms(*store_);
  store_->ChangeAll(
      {Added("Court"), Renamed(rooms.Rows[0], "Big Pool"), Removed(rooms.Rows[1]), Added("Bar")},
      {rooms});
  EXPECT_EQ("Big Pool;Court;Bar;", Names(*store_));
  store_.reset();
  EXPECT_EQ("Big Pool;Court;Bar;", NamesIn("Calendar.mdb"));
}

TEST_P(WholeStoreTest, WhenOneChangeFailsNoneIsMade) {
  const QueryResult rooms = Rooms(*store_);
  store_->Delete("Rooms", rooms.Rows[1]);
  EXPECT_THROW(store_->ChangeAll({Added("Court"), Removed(rooms.Rows[1])}, {}), RowChangedError);
  RowChange no_column = Added("Bar");
  no_column.Fields.emplace_back("Colour", std::int64_t{1});
  EXPECT_THROW(store_->ChangeAll({Added("Court"), no_column}, {}), DatabaseError);
  EXPECT_EQ("Pool;", Names(*store_));
  AddRoom(*store_, "Bar");
  EXPECT_EQ("Pool;Bar;", Names(*store_));
}

TEST_P(WholeStoreTest, ChangesThatRestOnOtherRowsAreRefused) {
  const QueryResult rooms = Rooms(*store_);
  AddRoom(*OpenFileStore(File("Calendar.mdb"), StoreAccess::ReadWrite), "Court");
  EXPECT_THROW(store_->ChangeAll({Added("Bar")}, {rooms}), RowChangedError);
  EXPECT_EQ("Pool;Hall;Court;", Names(*store_));
  store_->ChangeAll({Added("Bar")}, {Rooms(*store_)});
  EXPECT_EQ("Pool;Hall;Court;Bar;", Names(*store_));
}

TEST_P(WholeStoreTest, ChangesThatRestOnARemovedRowAreRefused) {
  const QueryResult rooms = Rooms(*store_);
  store_->Delete("Rooms", rooms.Rows[1]);
  EXPECT_THROW(store_->ChangeAll({Added("Bar")}, {rooms}), RowChangedError);
  EXPECT_EQ("Pool;", Names(*store_));
}

TEST_P(WholeStoreTest, ACopyHoldsWhatOthersHaveSavedInTheOpenFile) {
  for (const StoreAccess access : {StoreAccess::ReadOnly, StoreAccess::ReadWrite}) {
    OpenFileStore(File("Calendar.mdb"), access)->CopyTo(File("Copy.mdb"));
    EXPECT_EQ("Pool;Hall;", NamesIn("Copy.mdb"));
    EXPECT_TRUE(OpenFileStore(File("Copy.mdb"), StoreAccess::ReadOnly)->Verify().empty());
    std::filesystem::remove(File("Copy.mdb"));
  }
}

TEST_P(WholeStoreTest, ACopyIsOneFileAlone) {
  OpenFileStore(File("Calendar.mdb"), StoreAccess::ReadOnly)->CopyTo(File("Copy.mdb"));
  store_.reset();
  EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Copy.mdb"}), folder_.Names());
}

TEST_P(WholeStoreTest, ACopyNeverReplacesAFile) {
  folder_.Write("Copy.mdb", "mine");
  EXPECT_THROW(store_->CopyTo(File("Copy.mdb")), DatabaseError);
  EXPECT_THROW(OpenFileStore(File("Calendar.mdb"), StoreAccess::ReadOnly)->CopyTo(File("Copy.mdb")),
               DatabaseError);
  EXPECT_EQ("mine", folder_.Read("Copy.mdb"));
}

TEST_P(WholeStoreTest, ASoundFileHasNothingWrong) {
  EXPECT_EQ(std::vector<Phrase>{}, store_->Verify());
}

/// What a server makes of a damage of its own files is for the server to say.
class DamagedStoreTest : public WholeStoreTest {};

INSTANTIATE_TEST_SUITE_P(Kinds, DamagedStoreTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

TEST_P(DamagedStoreTest, ADamagedFileSaysWhatIsWrong) {
  std::vector<RowChange> rooms;
  for (int i = 0; i < 300; ++i) {
    rooms.push_back(Added("Room " + std::to_string(i)));
  }
  store_->ChangeAll(rooms, {});
  store_.reset();
  std::string bytes = folder_.Read("Calendar.mdb");
  const std::size_t half = bytes.size() / 2;
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(half), bytes.end(), 'Z');
  folder_.Write("Calendar.mdb", bytes);
  EXPECT_FALSE(OpenFileStore(File("Calendar.mdb"), StoreAccess::ReadOnly)->Verify().empty());
}

TEST(WholeSqliteStoreTest, TheFilesOwnWordsAreGiven) {
  const TempFolder folder;
  CreateStoreOfKind(StoreKind::Sqlite, folder.File("Any.mdb").string())->CreateTable(RoomsTable());
  std::string bytes = folder.Read("Any.mdb");
  constexpr std::size_t kCountOfFreePages = 39;
  bytes.at(kCountOfFreePages) = 5;
  folder.Write("Any.mdb", bytes);
  const auto problems =
      OpenFileStore(folder.File("Any.mdb").string(), StoreAccess::ReadOnly)->Verify();
  ASSERT_EQ(1U, problems.size());
  EXPECT_NE(std::string::npos, problems[0].English().find("reelist")) << problems[0];
}

}  // namespace
}  // namespace veyra
