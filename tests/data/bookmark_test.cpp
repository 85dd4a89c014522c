#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "data/connection.h"
#include "data/schema.h"
#include "tests/failing_store.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// Three facilities: Pool, Hall and Court.
class BookmarkTest : public testing::TestWithParam<StoreKind> {
 protected:
  BookmarkTest() {
    auto store = CreateStoreOfKind(GetParam(), folder_.File("Calendar.mdb").string());
    store->CreateTable(RoomsTable());
    connection_ =
        std::make_unique<Connection>(std::make_unique<FailingStore>(std::move(store), faults_));
    for (const char* name : {"Pool", "Hall", "Court"}) {
      Add(*Open(), name);
    }
  }

  std::unique_ptr<Recordset> Open() {
    return connection_->Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
  }

  static RowKey Add(Recordset& rows, const std::string& name) {
    rows.AddNew();
    rows.SetField("Name", name);
    rows.Update();
    return rows.Bookmark();
  }

  static std::string NameAt(Recordset& rows) { return ToText(rows.Field("Name")); }

  TempFolder folder_;
  Faults faults_;
  std::unique_ptr<Connection> connection_;
};

TEST_P(BookmarkTest, LeadsBackToItsRow) {
  const auto rows = Open();
  const RowKey pool = rows->Bookmark();
  rows->MoveLast();
  const RowKey court = rows->Bookmark();
  EXPECT_TRUE(rows->MoveTo(pool));
  EXPECT_EQ("Pool", NameAt(*rows));
  EXPECT_TRUE(rows->MoveTo(court));
  EXPECT_EQ("Court", NameAt(*rows));
}

TEST_P(BookmarkTest, LeadsToAChangedRowAsItIsNow) {
  const auto rows = Open();
  const RowKey pool = rows->Bookmark();
  rows->SetField("Name", std::string("Baths"));
  rows->Update();
  rows->MoveNext();
  EXPECT_TRUE(rows->MoveTo(pool));
  EXPECT_EQ("Baths", NameAt(*rows));
}

TEST_P(BookmarkTest, OfADeletedRowLeadsNowhere) {
  const auto rows = Open();
  const RowKey pool = rows->Bookmark();
  rows->Delete();
  rows->MoveNext();
  EXPECT_FALSE(rows->MoveTo(pool));
  EXPECT_EQ("Hall", NameAt(*rows));
}

TEST_P(BookmarkTest, LeadsToAnAddedRowWithoutReadingTheOthers) {
  const auto rows = Open();
  const RowKey first = Add(*rows, "Sauna");
  Add(*rows, "Kitchen");
  faults_.Fail(Statement::Select, 1);
  EXPECT_TRUE(rows->MoveTo(first));
  EXPECT_EQ("Sauna", NameAt(*rows));
  rows->Delete();
  EXPECT_FALSE(rows->MoveTo(first));
}

TEST_P(BookmarkTest, IsNotToBeHadOfARowThatIsNotSaved) {
  const auto rows = Open();
  rows->AddNew();
  EXPECT_THROW(rows->Bookmark(), std::logic_error);
}

TEST_P(BookmarkTest, CannotBeGoneToWhileFieldsArePending) {
  const auto rows = Open();
  const RowKey pool = rows->Bookmark();
  rows->SetField("Name", std::string("Baths"));
  EXPECT_THROW(rows->MoveTo(pool), std::logic_error);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, BookmarkTest, testing::ValuesIn(kAllStoreKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

}  // namespace
}  // namespace veyra
