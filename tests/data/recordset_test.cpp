#include "data/recordset.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "data/connection.h"
#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr const char* kAll = "SELECT * FROM Rooms";

class RecordsetTest : public testing::Test {
 protected:
  RecordsetTest() : connection_(CreateStore(folder_.File("Calendar.mdb").string())) {
    connection_.CreateTable(RoomsTable());
  }

  void AddRoom(const std::string& name) {
    const auto rows = OpenStatic(kAll);
    rows->AddNew();
    rows->SetField("Name", name);
    rows->Update();
  }

  void AddRooms(const std::vector<std::string>& names) {
    for (const std::string& name : names) AddRoom(name);
  }

  std::unique_ptr<Recordset> OpenStatic(const std::string& sql) {
    return connection_.Open(sql, CursorType::StaticOptimistic);
  }

  std::unique_ptr<Recordset> OpenForward(const std::string& sql) {
    return connection_.Open(sql, CursorType::ForwardOnlyReadOnly);
  }

  /// The names from the cursor to the end, each followed by a blank.
  static std::string NamesFrom(Recordset& rows) {
    std::string names;
    for (; !rows.AtEnd(); rows.MoveNext()) names += ToText(rows.Field("Name")) + " ";
    return names;
  }

  std::string Names() { return NamesFrom(*OpenForward(kAll)); }

  TempFolder folder_;
  Connection connection_;
};

TEST_F(RecordsetTest, ForwardCursorReadsRowsInTheOrderTheyWereAdded) {
  AddRooms({"Pool", "Hall", "Bar"});
  EXPECT_EQ("Pool Hall Bar ", Names());
}

TEST_F(RecordsetTest, StaticCursorReadsRowsInTheOrderTheyWereAdded) {
  AddRooms({"Pool", "Hall", "Bar"});
  EXPECT_EQ("Pool Hall Bar ", NamesFrom(*OpenStatic(kAll)));
}

TEST_F(RecordsetTest, DeletingEachRowInALoopLeavesNone) {
  AddRooms({"Pool", "Hall", "Bar"});
  const auto rows = OpenStatic(kAll);
  for (; !rows->AtEnd(); rows->MoveNext()) rows->Delete();
  EXPECT_EQ("", Names());
}

TEST_F(RecordsetTest, UpdateOfARowChangedSinceIsRefused) {
  AddRoom("Pool");
  const auto mine = OpenStatic(kAll);
  mine->SetField("Name", "Mine");
  const auto theirs = OpenStatic(kAll);
  theirs->SetField("Name", "Theirs");
  theirs->Update();
  EXPECT_THROW(mine->Update(), RowChangedError);
  EXPECT_EQ("Theirs ", Names());
}

}  // namespace
}  // namespace veyra
