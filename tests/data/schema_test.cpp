#include "data/schema.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/data/schema_fixture.h"

namespace veyra {
namespace {

constexpr const char* kDefaultSettings =
    "ID BkGrnd HeaderTxt DaysTxtColor TodayColor TodayBColor \n"
    "1 -2147483643 12582912 0 255 -2147483643 ";

TEST_F(SchemaTest, GivesANewCalendarItsSettings) {
  MakeCalendar();
  Start();
  EXPECT_EQ(kDefaultSettings, Table("Settings"));
}

TEST_F(SchemaTest, GivesANewCalendarItsSettingsOnce) {
  MakeCalendar();
  Start();
  Start();
  EXPECT_EQ(kDefaultSettings, Table("Settings"));
}

TEST_F(SchemaTest, LeavesSettingsThatAreThere) {
  MakeCalendar();
  Start();
  const auto row = databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic);
  row->SetField("BkGrnd", "255");
  row->Update();
  const std::string before = Table("Settings");
  Start();
  EXPECT_EQ(before, Table("Settings"));
}

TEST_F(SchemaTest, LeavesSettingsWithoutRowsEmpty) {
  MakeCalendar();
  Start();
  databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic)->Delete();
  Start();
  EXPECT_EQ("ID BkGrnd HeaderTxt DaysTxtColor TodayColor TodayBColor ", Table("Settings"));
}

TEST_F(SchemaTest, KeepsItsSettingsOnceClosed) {
  MakeCalendar();
  Start();
  databases_.ResCon.reset();
  CreateResCon(databases_);
  EXPECT_EQ(kDefaultSettings, Table("Settings"));
}

// Upgrades

TEST_F(SchemaTest, AddsTheGroupKeyToAnOlderCalendar) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  Start();
  EXPECT_EQ("RmID Event DateOfRes TimeFrom TimeTo MultKey ", Table("Reserv"));
}

TEST_F(SchemaTest, ReadsTheGroupKeyOfOlderBookingsAsZero) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()})
      ->Insert("Reserv", {{"RmID", 1}, {"Event", "old"}});
  Start();
  EXPECT_EQ("RmID Event DateOfRes TimeFrom TimeTo MultKey \n1 old NULL NULL NULL 0 ",
            Table("Reserv"));
}

TEST_F(SchemaTest, ReadsTheGroupKeyOfOlderBookingsAsADouble) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()})->Insert("Reserv", {{"RmID", 1}});
  Start();
  EXPECT_EQ(Value(0.0),
            databases_.ResCon->Open("SELECT * FROM Reserv", CursorType::ForwardOnlyReadOnly)
                ->Field("MultKey"));
}

TEST_F(SchemaTest, LeavesTheGroupKeysThatAreThere) {
  Make("Calendar.mdb", {RoomsTable(), ReservTable()})
      ->Insert("Reserv", {{"RmID", 1}, {"MultKey", 20140406153012.0}});
  Start();
  EXPECT_EQ("RmID Event DateOfRes TimeFrom TimeTo MultKey \n1 NULL NULL NULL NULL 20140406153012 ",
            Table("Reserv"));
}

/// Settings as an older calendar has them: without TodayBColor, in colours of its own.
class OldSettingsTest : public SchemaTest {
 protected:
  OldSettingsTest() {
    TableDefinition settings{
        .Name = "Settings",
        .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                    {.Name = "BkGrnd", .Size = 16}}};
    store_ = Make("Calendar.mdb", {RoomsTable(), ReservTable(), settings});
  }

  std::unique_ptr<Store> store_;
};

TEST_F(OldSettingsTest, GetTodaysBackgroundFromTheWindows) {
  store_->Insert("Settings", {{"BkGrnd", "16711680"}});
  store_.reset();
  Start();
  EXPECT_EQ("ID BkGrnd TodayBColor \n1 16711680 16711680 ", Table("Settings"));
}

TEST_F(OldSettingsTest, GetItInTheFirstRowOnly) {
  store_->Insert("Settings", {{"BkGrnd", "1"}});
  store_->Insert("Settings", {{"BkGrnd", "2"}});
  store_.reset();
  Start();
  EXPECT_EQ("ID BkGrnd TodayBColor \n1 1 1 \n2 2 0 ", Table("Settings"));
}

TEST_F(OldSettingsTest, GetTheColumnThoughThereIsNoRow) {
  store_.reset();
  Start();
  EXPECT_EQ("ID BkGrnd TodayBColor ", Table("Settings"));
}

TEST_F(SchemaTest, SaysNothingWhenReservIsMissing) {
  Make("Calendar.mdb", {RoomsTable()});
  EXPECT_NO_THROW(Start());
}

TEST_F(SchemaTest, SaysNothingWhenTheCalendarCannotBeChanged) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  databases_.ResCon =
      std::make_unique<Connection>(OpenStore(File("Calendar.mdb"), StoreAccess::ReadOnly));
  EXPECT_NO_THROW(EnsureSettingsRow(databases_));
  EXPECT_NO_THROW(EnsureMultKeyColumn(databases_));
  EXPECT_NO_THROW(EnsureTodayBColorColumn(databases_));
}

TEST_F(SchemaTest, LeavesAnUpToDateCalendarAlone) {
  MakeCalendar();
  Start();
  databases_.ResCon.reset();
  const std::string before = folder_.Read("Calendar.mdb");
  Start();
  databases_.ResCon.reset();
  EXPECT_EQ(before, folder_.Read("Calendar.mdb"));
}

TEST_F(SchemaTest, LeavesOneFileWhenItIsClosed) {
  MakeCalendar();
  Start();
  databases_.ResCon.reset();
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, folder_.Names());
}

// HasNamedItem

TEST(HasNamedItemTest, FindsNothingInAnEmptyCollection) {
  EXPECT_FALSE(HasNamedItem({}, "ID"));
}

TEST(HasNamedItemTest, FindsNoEmptyNameInAnEmptyCollection) {
  EXPECT_FALSE(HasNamedItem({}, ""));
}

TEST(HasNamedItemTest, FindsTheLastItem) {
  EXPECT_TRUE(HasNamedItem({"a", "MultKey"}, "MultKey"));
}

TEST(HasNamedItemTest, MindsLetterCase) {
  EXPECT_FALSE(HasNamedItem({"MultKey"}, "multkey"));
}

TEST(HasNamedItemTest, FindsNoPartOfAName) {
  EXPECT_FALSE(HasNamedItem({"MultKey"}, "Mult"));
}

}  // namespace
}  // namespace veyra
